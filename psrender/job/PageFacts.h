#pragma once

#include "Drawing/Image.h"
#include "psrender/base/Warnings.h"
#include "psrender/scene/DisplayList.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace psrender {

/// How the text of a font comes onto a page.
enum class FontWay : std::uint8_t {
    embedded,
    printer,   ///< a standard font, which every printer has
    outlined,  ///< its glyphs are drawn as shapes
};

/// What there is to tell of a page.
struct PageFacts {
    struct Font {
        FontWay way = FontWay::outlined;
        std::set<std::string> standsFor;  ///< families that are not installed
    };
    struct Picture {
        Drawing::PixelSize size;
        std::size_t places = 0;
    };

    std::string input;
    std::size_t number = 0;  ///< of the input, from 1
    double width = 0;        ///< points
    double height = 0;
    std::map<std::string, Font> fonts;  ///< by their names
    std::vector<Picture> pictures;
    std::vector<Warnings::Kind> simplified;
};

/// Collects fonts and pictures: those of what was read in a first call, and those of what is
/// painted in a second one.
class FactCollector {
public:
    explicit FactCollector(bool embedsStandardFonts) : embedsStandardFonts_(embedsStandardFonts) {}

    /// Before planning: every font might have become shapes, as far as is known.
    void noteRead(const scene::Page& page);
    /// After it: what is still text is shown with its font.
    void notePlanned(const scene::Page& page);

    [[nodiscard]] PageFacts take(const std::string& input, std::size_t number,
                                 const Warnings& warnings);

private:
    PageFacts facts_;
    bool embedsStandardFonts_;
};

}  // namespace psrender
