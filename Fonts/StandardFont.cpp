#include "Fonts/StandardFont.h"

#include "Fonts/internal/Characters.h"
#include "Fonts/internal/StandardFontData.h"

#include <algorithm>
#include <cstddef>

namespace Fonts {

namespace {

constexpr int kBoldFrom = 600;

using FontList = std::vector<Core::SmartPtr<StandardFont>>;

FontList makeAll() {
    FontList fonts;
    for (const StandardFontData& data : standardFonts())
        fonts.push_back(Core::makeObject<StandardFont>(data));
    return fonts;
}

const FontList& allFonts() {
    static const FontList fonts = makeAll();
    return fonts;
}

FontMetrics metricsOf(const StandardFontData& data) {
    return {data.postScriptName, data.familyName,        data.fullName,
            data.ascent,         data.descent,           data.capHeight,
            data.xHeight,        data.underlinePosition, data.underlineThickness,
            data.italicAngle};
}

}  // namespace

Core::SmartPtr<StandardFont> StandardFont::findByName(const Core::String& postScriptName) {
    for (const auto& font : allFonts())
        if (font->metrics_.postScriptName.equalsNoCase(postScriptName))
            return font;
    return {};
}

Core::SmartPtr<StandardFont> StandardFont::findByStyle(const Core::String& family, int weight,
                                                       Drawing::FontSlant slant) {
    FontList members;
    for (const auto& font : allFonts())
        if (font->metrics_.familyName.equalsNoCase(family))
            members.push_back(font);
    if (members.empty())
        return {};
    const std::size_t style =
        (weight >= kBoldFrom ? 1U : 0U) + (slant != Drawing::FontSlant::upright ? 2U : 0U);
    return members[std::min(style, members.size() - 1)];
}

StandardFont::StandardFont(const StandardFontData& data) : data_(data), metrics_(metricsOf(data)) {
    for (char32_t character = 0; character < asciiGlyphs_.size(); ++character)
        asciiGlyphs_[character] = data.characterSet.find(character).value_or(kMissingGlyph);
}

StandardFont::~StandardFont() = default;

FontProgram::GlyphId StandardFont::glyphOf(char32_t character) const {
    if (character < asciiGlyphs_.size()) [[likely]]
        return asciiGlyphs_[character];
    const auto glyph = data_.characterSet.find(character);
    return glyph ? *glyph : kMissingGlyph;
}

std::vector<FontProgram::GlyphId> StandardFont::mapGlyphs(const FontScript& run) const {
    return mapCharacters(run, [this](char32_t character) { return glyphOf(character); });
}

Core::String StandardFont::getGlyphName(GlyphId glyph) const {
    return glyph < data_.widths.size() ? data_.characterSet.names[glyph] : ".notdef";
}

std::optional<int> StandardFont::getKerning(GlyphId first, GlyphId second,
                                            bool secondIsMark) const {
    if (secondIsMark || !data_.kerning || first >= data_.widths.size())
        return std::nullopt;
    return data_.kerning->find(first, second);
}

std::uint32_t StandardFont::getGlyphCount() const {
    return static_cast<std::uint32_t>(data_.widths.size());
}

float StandardFont::getAdvance(GlyphId glyph) const {
    return glyph < data_.widths.size() ? static_cast<float>(data_.widths[glyph]) : 0;
}

}  // namespace Fonts
