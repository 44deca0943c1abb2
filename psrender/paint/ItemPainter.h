#pragma once

#include "psrender/paint/PageResources.h"

#include <optional>
#include <vector>

namespace psrender::paint {

/// Draws planned items into one context, a page, tile or fragment, and tells it only what changes
/// from one item to the next.
class ItemPainter {
public:
    /// Both must outlive the painter.
    ItemPainter(Drawing::Print::PrintDocument& context, PageResources& resources)
        : context_(context), resources_(resources) {}

    void paint(const scene::ItemList& list);

    void operator()(const scene::Shape& shape);
    void operator()(const scene::Text& text);
    void operator()(const scene::Picture& picture);
    void operator()(const scene::Placement& placement);
    void operator()(const scene::BeginGroup& group);
    void operator()(const scene::EndGroup& end);

private:
    /// Glyphs from `first` up to `last`, under the run's transform.
    struct Stretch {
        std::size_t first = 0;
        std::size_t last = 0;
        std::size_t text = 0;  ///< where in the run's text theirs begins
    };

    /// Brings clip and transform up to date for what is drawn next.
    void place(const scene::Affine& transform);
    void setTransform(const scene::Affine& transform);
    void setPaints(const scene::Paint& fill, const scene::Paint& stroke,
                   const scene::StrokeStyle& style);
    void showGlyphs(const scene::Text& text);
    void showStretch(const scene::TextRun& run, const Stretch& stretch, bool isTurned);

    Drawing::Print::PrintDocument& context_;
    PageResources& resources_;
    std::optional<scene::Affine> transform_;
    std::optional<scene::Paint> fill_;
    std::optional<scene::Paint> stroke_;
    scene::StrokeStyle style_;
    std::vector<const scene::Clip*> clips_;  ///< of the groups around, the outermost first
    std::vector<const scene::Clip*> applied_;
};

}  // namespace psrender::paint
