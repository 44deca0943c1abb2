#include "PS/fonts/PSOneByteFontResource.h"

#include "Core/Exception.h"
#include "Fonts/FontScriptIterator.h"

#include <array>
#include <utility>

namespace Drawing::PS {

namespace {

constexpr std::int32_t kQuickGlyphs = 1 << 16;
constexpr int kCodeWithoutGlyph = 3;
constexpr std::int32_t kNoGlyph = -2;  // -1 is the missing glyph, which has a code like any other

struct Escape {
    std::array<char, 12> text{'\\'};
    std::uint32_t length = 1;
};

constexpr Escape escapeOf(std::uint32_t code) {
    Escape escape;
    for (unsigned shift = 30; shift <= 30; shift -= 3)
        if (shift < 6 || code >> shift != 0)
            escape.text[escape.length++] = static_cast<char>('0' + (code >> shift & 7));
    return escape;
}

constexpr auto kEscapes = [] {
    std::array<Escape, PSOneByteFontResource::kCodes> escapes{};
    for (std::uint32_t code = 0; code < escapes.size(); ++code)
        escapes[code] = escapeOf(code);
    return escapes;
}();

}  // namespace

PSOneByteFontResource::~PSOneByteFontResource() = default;

/// A glyph that occurs twice in the text counts twice, so a text is never promised room that it
/// might not have.
int PSOneByteFontResource::addGlyphs(const Core::String& text) {
    std::vector<std::int32_t> fresh;
    for (const MappedRun& mapped : mapText(text))
        for (const GlyphId glyph : mapped.glyphs)
            if (findCode(static_cast<std::int32_t>(glyph)) == kNoCode)
                fresh.push_back(static_cast<std::int32_t>(glyph));
    if (fresh.empty())
        return nothingNew;
    if (glyphCodes.size() + fresh.size() > kCodes)
        return doesNotFit;
    for (const std::int32_t glyph : fresh)
        assignCode(glyph);
    return added;
}

const std::vector<PSOneByteFontResource::MappedRun>& PSOneByteFontResource::mapText(
    const Core::String& text) {
    if (mappedText == text && !mappedRuns.empty())
        return mappedRuns;
    mappedRuns.clear();
    mappedText = text;
    Fonts::FontScriptIterator runs(text, 0);
    for (Fonts::FontScript run; runs.next(run);) {
        std::vector<GlyphId> glyphs = fontProgram->mapGlyphs(run);
        mappedRuns.push_back({std::move(run), std::move(glyphs)});
    }
    return mappedRuns;
}

void PSOneByteFontResource::assignCode(std::int32_t glyph) {
    const auto next = static_cast<std::uint32_t>(glyphCodes.size());
    if (!glyphCodes.try_emplace(glyph, next).second || glyph < 0 || glyph >= kQuickGlyphs)
        return;
    const auto index = static_cast<std::size_t>(glyph);
    if (index >= quickCodes.size())
        quickCodes.resize(index + 1, kNoCode);
    quickCodes[index] = next;
}

std::uint32_t PSOneByteFontResource::findCode(std::int32_t glyph) const {
    if (glyph >= 0 && static_cast<std::size_t>(glyph) < quickCodes.size())
        return quickCodes[static_cast<std::size_t>(glyph)];
    const auto found = glyphCodes.find(glyph);
    return found != glyphCodes.end() ? found->second : kNoCode;
}

std::uint32_t PSOneByteFontResource::codeOf(GlyphId glyph) {
    const auto signedGlyph = static_cast<std::int32_t>(glyph);
    const std::uint32_t known = findCode(signedGlyph);
    if (known != kNoCode)
        return known;
    assignCode(signedGlyph);
    return findCode(signedGlyph);
}

void PSOneByteFontResource::appendEscape(std::uint32_t code, std::string& out) {
    if (code < kEscapes.size()) [[likely]] {
        out.append(kEscapes[code].text.data(), kEscapes[code].length);
        return;
    }
    const Escape escape = escapeOf(code);
    out.append(escape.text.data(), escape.length);
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
            throw Core::UnreacheableCodeException("PSDocument", kCodeWithoutGlyph);
        names.push_back(fontProgram->getGlyphName(static_cast<GlyphId>(glyph)));
    }
    return names;
}

}  // namespace Drawing::PS
