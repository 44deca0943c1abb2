#pragma once

#include "psrender/paint/Brushes.h"

#include <optional>
#include <unordered_map>

namespace psrender::paint {

/// Draws planned items into one context, a page or a tile, and tells it only what changes from
/// one item to the next.
class ItemPainter {
public:
    /// Both must outlive the painter.
    ItemPainter(Drawing::IOutputContext& context, Brushes& brushes)
        : context_(context), brushes_(brushes) {}

    void operator()(const scene::Shape& shape);
    void operator()(const scene::Text& text);
    void operator()(const scene::Picture& picture);
    void operator()(const scene::Placement& placement);
    /// Planned items have no groups.
    void operator()(const scene::BeginGroup& /*group*/) {}
    void operator()(const scene::EndGroup& /*end*/) {}

private:
    void setTransform(const scene::Affine& transform);
    Core::SmartPtr<Drawing::IOutputContext> fragmentOf(const scene::ItemList& symbol);
    void setPaints(const scene::Paint& fill, const scene::Paint& stroke,
                   const scene::StrokeStyle& style);

    Drawing::IOutputContext& context_;
    Brushes& brushes_;
    std::optional<scene::Affine> transform_;
    std::optional<scene::Paint> fill_;
    std::optional<scene::Paint> stroke_;
    scene::StrokeStyle style_;
    /// What was placed already, by symbol.
    std::unordered_map<const scene::ItemList*, Core::SmartPtr<Drawing::IOutputContext>> fragments_;
};

}  // namespace psrender::paint
