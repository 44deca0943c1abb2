#pragma once

#include "psrender/raster/module/CairoHandles.h"

#include <vector>

namespace psrender::raster {

/// Paints items on a surface, one after the other. Colour fields, which only planning makes, are
/// not among them.
class CairoPainter {
public:
    /// `toPixels` leads from the items' space to the surface. The context must outlive the
    /// painter.
    CairoPainter(cairo_t* context, const scene::Affine& toPixels, TextOutlines outlines)
        : context_(context), toPixels_(toPixels), outlines_(outlines) {}

    void paint(const std::vector<scene::Item>& items);

    void operator()(const scene::Shape& shape);
    void operator()(const scene::Text& text);
    void operator()(const scene::Picture& picture);
    void operator()(const scene::Placement& placement);
    void operator()(const scene::BeginGroup& group);
    void operator()(const scene::EndGroup& end);

private:
    enum class Part : std::uint8_t { fill, stroke };

    void setTransform(const scene::Affine& map);
    void paintPart(const scene::Shape& shape, Part part);
    void drawPart(const scene::Shape& shape, Part part);
    /// Covers the current path's fill or stroke with tiles.
    void paintTiles(const scene::Shape& shape, Part part, const scene::Paint& paint);
    void layTiles(const scene::Pattern& pattern, const scene::Affine& toPixels);
    void paintAside(const std::vector<scene::Item>& items, const scene::Affine& toPixels);

    void clipToRegion(const scene::Filter& filter);
    /// Clips to what the group that begins now may paint.
    void clipToExtent();
    /// Clips to an area of one shape; false if the area is none.
    bool clipToShape(const scene::Clip& clip);
    Pattern coverageOf(const scene::Clip& clip);
    Pattern maskOf(const scene::Mask& mask);
    [[nodiscard]] Pattern filtered(Pattern source, const scene::Filter& filter) const;
    /// Calls `draw` and gives out what it drew on clear ground.
    template <class Draw>
    Pattern group(cairo_content_t content, Draw draw);
    /// What of `source` shows through `mask`.
    Pattern through(Pattern source, Pattern mask);

    struct Level {
        const scene::BeginGroup* group;
        bool isAside;  ///< what is in it is drawn on a surface of its own first
        bool isClipped;
    };

    cairo_t* context_;
    scene::Affine toPixels_;
    TextOutlines outlines_;
    std::vector<Level> levels_;
    const scene::Item* current_ = nullptr;  ///< that is being painted
    const scene::Item* end_ = nullptr;      ///< of those that it is one of
};

}  // namespace psrender::raster
