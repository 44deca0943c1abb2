#pragma once

#include "psrender/svg/elements/Surroundings.h"

#include <pugixml.hpp>
#include <string_view>

namespace psrender {
class Warnings;
}

namespace psrender::image {
struct UprightImage;
}

namespace psrender::svg {

class Canvas;
class ImageLinks;
class XmlTree;

/// Reads `image` elements: where the picture lies, and which part of it shows. Touches the canvas
/// and the images that the drawing links to.
class ImageReader {
public:
    /// All must outlive the reader.
    ImageReader(const XmlTree& tree, Canvas& canvas, ImageLinks& links, Warnings& warnings)
        : tree_(tree), canvas_(canvas), links_(links), warnings_(warnings) {}

    /// Throws `InputError` for an image that the system took away.
    void draw(pugi::xml_node element, const Surroundings& inside);

private:
    const image::UprightImage* find(std::string_view address, pugi::xml_node element);

    const XmlTree& tree_;
    Canvas& canvas_;
    ImageLinks& links_;
    Warnings& warnings_;
};

}  // namespace psrender::svg
