#include "PS/fonts/PSOneByteFontResource.h"

#include "Core/Exception.h"
#include "Fonts/FontScriptIterator.h"

#include <algorithm>

namespace Drawing::PS {

namespace {

constexpr std::int32_t kNoGlyph = -2;  // -1 is the missing glyph, which has a code like any other

}  // namespace

PSOneByteFontResource::~PSOneByteFontResource() = default;

/// A glyph that occurs twice in the text counts twice, so a text is never promised room that it
/// might not have.
int PSOneByteFontResource::addGlyphs(const Core::String& text) {
    std::vector<std::int32_t> fresh;
    Fonts::FontScriptIterator runs(text, 0);
    for (Fonts::FontScript run; runs.next(run);)
        for (const GlyphId glyph : fontProgram->mapGlyphs(run))
            if (!glyphCodes.contains(static_cast<std::int32_t>(glyph)))
                fresh.push_back(static_cast<std::int32_t>(glyph));
    if (fresh.empty())
        return nothingNew;
    if (glyphCodes.size() + fresh.size() > kCodes)
        return doesNotFit;
    for (const std::int32_t glyph : fresh)
        assignCode(glyph);
    return added;
}

void PSOneByteFontResource::assignCode(std::int32_t glyph) {
    glyphCodes.try_emplace(glyph, static_cast<std::uint32_t>(glyphCodes.size()));
}

std::uint32_t PSOneByteFontResource::codeOf(GlyphId glyph) {
    const auto next = static_cast<std::uint32_t>(glyphCodes.size());
    return glyphCodes.try_emplace(static_cast<std::int32_t>(glyph), next).first->second;
}

void PSOneByteFontResource::appendEscape(std::uint32_t code, std::string& out) {
    const auto digit = [&](unsigned shift) {
        return static_cast<char>('0' + ((code >> shift) & 7));
    };
    out.push_back('\\');
    for (unsigned shift = 30; shift >= 9; shift -= 3)
        if (code >> shift != 0)
            out.push_back(digit(shift));
    if (code >> 6 != 0)
        out.push_back(digit(6));
    out.push_back(digit(3));
    out.push_back(digit(0));
}

std::vector<Core::String> PSOneByteFontResource::namesInCodeOrder() const {
    std::vector<std::int32_t> glyphs(glyphCodes.size(), kNoGlyph);
    for (const auto& [glyph, code] : glyphCodes)
        if (code < glyphs.size())
            glyphs[code] = glyph;
    std::vector<Core::String> names;
    names.reserve(glyphs.size());
    for (const std::int32_t glyph : glyphs) {
        if (glyph == kNoGlyph)
            throw Core::UnreacheableCodeException("PSFontResource", 1);
        names.push_back(fontProgram->getGlyphName(static_cast<GlyphId>(glyph)));
    }
    return names;
}

}  // namespace Drawing::PS
