#include "psrender/svg/elements/ColorGlyphs.h"

#include "Fonts/OpenTypeFont.h"
#include "psrender/base/Warnings.h"
#include "psrender/svg/elements/Canvas.h"
#include "psrender/svg/image/ImageLinks.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace psrender::svg {

using Fonts::GlyphColors;
using scene::Affine;
using scene::PlacedGlyph;
using scene::Text;

namespace {

constexpr double kEm = 1000;
constexpr double kOpaque = 255;

bool isPlain(const GlyphColors& colors) {
    return colors.layers.empty() && !colors.picture && !colors.isSimplified;
}

/// One glyph of a run, alone, showing `shown`.
Text only(const Text& text, const PlacedGlyph& glyph, const Core::String& shown) {
    auto run = std::make_shared<scene::TextRun>(*text.run);
    run->isPlain = false;
    run->text = shown;
    run->glyphs = {glyph};
    run->glyphs.front().textLength = static_cast<std::uint32_t>(shown.length());
    Text result = text;
    result.run = std::move(run);
    return result;
}

}  // namespace

void ColorGlyphs::draw(const Text& text, pugi::xml_node element) {
    const auto font = text.run->program.dynamicCast<Fonts::OpenTypeFont>();
    if (!font || !font->hasColors()) {
        canvas_.add(text, element);
        return;
    }
    std::vector<GlyphColors> colors;
    for (const PlacedGlyph& glyph : text.run->glyphs)
        colors.push_back(font->getColors(glyph.id));
    if (!isPainted(text.fill) || std::ranges::all_of(colors, isPlain)) {
        canvas_.add(text, element);
        return;
    }
    std::size_t at = 0;
    for (std::size_t i = 0; i < colors.size(); ++i) {
        const std::size_t length = text.run->glyphs[i].textLength;
        const Core::String shown(text.run->text.view().substr(at, length));
        drawGlyph(only(text, text.run->glyphs[i], shown), colors[i], element);
        at += length;
    }
}

void ColorGlyphs::drawGlyph(const Text& text, const GlyphColors& colors, pugi::xml_node element) {
    const PlacedGlyph& glyph = text.run->glyphs.front();
    if (colors.isSimplified)
        warnings_.add("letters with gradients of their font are shown in one colour (<text>)");
    if (colors.layers.empty())
        canvas_.add(text, element);
    bool isFirst = true;
    for (const Fonts::GlyphLayer& layer : colors.layers) {
        PlacedGlyph part = glyph;
        part.id = layer.glyph;
        Text painted = only(text, part, isFirst ? text.run->text : Core::String());
        painted.stroke = {};
        if (layer.color) {
            painted.fill.source =
                scene::Color{layer.color->red, layer.color->green, layer.color->blue};
            painted.fill.opacity *= layer.color->alpha / kOpaque;
        }
        canvas_.add(std::move(painted), element);
        isFirst = false;
    }
    if (colors.picture)
        drawPicture(text, *colors.picture, element);
}

void ColorGlyphs::drawPicture(const Text& text, const Fonts::GlyphPicture& picture,
                              pugi::xml_node element) {
    const PlacedGlyph& glyph = text.run->glyphs.front();
    const auto* image = links_.findLetter({picture.png.chars(), picture.png.size()});
    if (image == nullptr)
        return;
    const double unit = text.run->size / kEm;
    const Affine toPage = text.transform *
                          Affine::translation(glyph.origin.x + picture.left * unit,
                                              glyph.origin.y - picture.top * unit) *
                          Affine::scaling(picture.width * unit, picture.height * unit);
    if (canvas_.canShow(toPage))
        canvas_.add(scene::Picture{image->image, toPage * image->upright, text.fill.opacity},
                    element);
}

}  // namespace psrender::svg
