#pragma once

#include "psrender/svg/elements/Surroundings.h"

#include <pugixml.hpp>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class Canvas;
class ImageLinks;

/// Reads `image` elements: where the picture lies, and which part of it shows. Touches the canvas
/// and the images that the drawing links to.
class ImageReader {
public:
    /// All must outlive the reader.
    ImageReader(Canvas& canvas, ImageLinks& links, Warnings& warnings)
        : canvas_(canvas), links_(links), warnings_(warnings) {}

    void draw(pugi::xml_node element, const Surroundings& inside);

private:
    Canvas& canvas_;
    ImageLinks& links_;
    Warnings& warnings_;
};

}  // namespace psrender::svg
