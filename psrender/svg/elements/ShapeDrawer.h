#pragma once

#include "psrender/svg/elements/Surroundings.h"
#include "psrender/svg/xml/ElementKind.h"

#include <pugixml.hpp>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class Canvas;
class MarkerReader;
class ShapePaints;
class ShapeReader;

/// Draws the basic shapes and paths: an outline, its paints, and the markers on it. Touches the
/// canvas.
class ShapeDrawer {
public:
    /// All must outlive the drawer.
    ShapeDrawer(ShapeReader& shapes, ShapePaints& paints, MarkerReader& markers, Canvas& canvas,
                Warnings& warnings)
        : shapes_(shapes),
          paints_(paints),
          markers_(markers),
          canvas_(canvas),
          warnings_(warnings) {}

    void draw(ElementKind kind, pugi::xml_node element, const Surroundings& inside);

private:
    /// Adds what cannot be seen but counts for a box, if there is one to be found.
    void addUnpainted(ElementKind kind, pugi::xml_node element, const Surroundings& inside);
    void fixStrokeWidth(scene::Shape& shape, const Surroundings& inside);

    ShapeReader& shapes_;
    ShapePaints& paints_;
    MarkerReader& markers_;
    Canvas& canvas_;
    Warnings& warnings_;
};

}  // namespace psrender::svg
