#include "psrender/svg/text/ColoredText.h"

#include "Fonts/OpenTypeFont.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

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

/// The first layer says what all of them show.
Text layerOf(const Text& letter, const Fonts::GlyphLayer& layer, bool isFirst) {
    PlacedGlyph part = letter.run->glyphs.front();
    part.id = layer.glyph;
    Text painted = only(letter, part, isFirst ? letter.run->text : Core::String());
    painted.stroke = {};
    if (layer.color) {
        painted.fill.source = scene::Color{layer.color->red, layer.color->green, layer.color->blue};
        painted.fill.opacity *= layer.color->alpha / kOpaque;
    }
    return painted;
}

LetterPicture pictureOf(const Text& letter, const Fonts::GlyphPicture& picture) {
    const PlacedGlyph& glyph = letter.run->glyphs.front();
    const double unit = letter.run->size / kEm;
    return {std::string(picture.png.chars(), picture.png.size()),
            letter.transform *
                Affine::translation(glyph.origin.x + picture.left * unit,
                                    glyph.origin.y - picture.top * unit) *
                Affine::scaling(picture.width * unit, picture.height * unit)};
}

void addLetter(const Text& letter, const GlyphColors& colors, ColoredText& result) {
    if (colors.layers.empty())
        result.texts.push_back(letter);
    for (const Fonts::GlyphLayer& layer : colors.layers)
        result.texts.push_back(layerOf(letter, layer, &layer == &colors.layers.front()));
    if (colors.picture)
        result.pictures.push_back(pictureOf(letter, *colors.picture));
    result.isSimplified = result.isSimplified || colors.isSimplified;
}

}  // namespace

ColoredText coloredText(const Text& text) {
    const auto font = text.run->program.dynamicCast<Fonts::OpenTypeFont>();
    if (!font || !font->hasColors() || !isPainted(text.fill))
        return {{text}, {}, false};
    std::vector<GlyphColors> colors;
    for (const PlacedGlyph& glyph : text.run->glyphs)
        colors.push_back(font->getColors(glyph.id));
    if (std::ranges::all_of(colors, isPlain))
        return {{text}, {}, false};
    ColoredText result;
    std::size_t at = 0;
    for (std::size_t i = 0; i < colors.size(); ++i) {
        const PlacedGlyph& glyph = text.run->glyphs[i];
        const Core::String shown(text.run->text.view().substr(at, glyph.textLength));
        addLetter(only(text, glyph, shown), colors[i], result);
        at += glyph.textLength;
    }
    return result;
}

}  // namespace psrender::svg
