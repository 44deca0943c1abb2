#pragma once

#include "psrender/svg/elements/Surroundings.h"
#include "psrender/svg/elements/SymbolStore.h"

#include <functional>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace psrender {
class Warnings;
}

namespace Images {
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
    /// Makes a page of the text of a drawing within this one. Throws `InputError`.
    using ReadDrawing = std::function<scene::Page(const std::string& text)>;

    /// All references must outlive the reader.
    ImageReader(const XmlTree& tree, Canvas& canvas, ImageLinks& links, Warnings& warnings,
                ReadDrawing readDrawing)
        : tree_(tree),
          canvas_(canvas),
          links_(links),
          warnings_(warnings),
          readDrawing_(std::move(readDrawing)) {}

    /// Throws `InputError` for an image that the system took away.
    void draw(pugi::xml_node element, const Surroundings& inside);

private:
    /// A drawing within this one.
    struct Drawing {
        Symbol symbol;
        double width = 0;  ///< points, as the height
        double height = 0;
    };

    const Images::UprightImage* find(std::string_view address, pugi::xml_node element);

    void drawDrawing(const std::string& text, pugi::xml_node element, const Surroundings& inside);
    const Drawing* drawingOf(const std::string& text);

    const XmlTree& tree_;
    Canvas& canvas_;
    ImageLinks& links_;
    Warnings& warnings_;
    ReadDrawing readDrawing_;
    /// By their text, which lives as long as the links.
    std::unordered_map<const std::string*, std::optional<Drawing>> drawings_;
};

}  // namespace psrender::svg
