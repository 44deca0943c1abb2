#include "Print/internal/TextRunMaker.h"

#include "Fonts/FontScriptIterator.h"
#include "Fonts/GlyphSink.h"
#include "Fonts/UnicodeRanges.h"

#include <cmath>

namespace Drawing::Print {

using Fonts::FontProgram;

namespace {

constexpr double kEm = 1000;
/// What a glyph may be off its place, as a part of the size: far below a printer's pixel.
constexpr double kOffPlace = 0.0005;

bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

char32_t nextCharacter(std::u16string_view text, std::size_t& at) {
    const char16_t unit = text[at++];
    if (!isHighSurrogate(unit) || at == text.size() || !isLowSurrogate(text[at]))
        return unit;
    return 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{text[at++]} - 0xDC00);
}

bool isMark(char32_t character) {
    return character >= 0x300 && character < 0x10000 &&
           Fonts::UnicodeRanges::isMark(static_cast<char16_t>(character));
}

std::u32string charactersOf(const Core::String& text) {
    std::u32string characters;
    for (std::size_t at = 0; at < text.length();)
        characters += nextCharacter(text.view(), at);
    return characters;
}

class BoxSink : public Fonts::GlyphSink {
public:
    void moveTo(float x, float y) override { hold(x, y); }
    void lineTo(float x, float y) override { hold(x, y); }
    void curveTo(float x1, float y1, float x2, float y2, float x3, float y3) override {
        hold(x1, y1);
        hold(x2, y2);
        hold(x3, y3);
    }
    void close() override {}

    Box box;

private:
    void hold(float x, float y) { box.hold({x, y}); }
};

}  // namespace

void layOut(const Core::String& text, FontStore::Entry& font, double size, bool kerning,
            GlyphLine& line) {
    line.glyphs.clear();
    line.characters.clear();
    line.moves.clear();
    Fonts::FontScriptIterator runs(text, 0);
    for (Fonts::FontScript run; runs.next(run);) {
        const std::vector<FontProgram::GlyphId> glyphs = font.program->mapGlyphs(run);
        std::size_t at = 0;
        for (std::size_t i = 0; i < glyphs.size(); ++i) {
            const char32_t character =
                at < run.text.length() ? nextCharacter(run.text.view(), at) : U' ';
            int move = 0;
            if (kerning && i > 0)
                move = font.kerning.get(*font.program, glyphs[i - 1], glyphs[i], isMark(character));
            line.glyphs.push_back(glyphs[i]);
            line.characters.push_back(character);
            line.moves.push_back(static_cast<float>(-move * size / kEm));
        }
    }
}

void encode(const GlyphLine& line, FontStore::Entry& font, TextRun& run) {
    run.font = font.font.get();
    run.glyphs.resize(line.glyphs.size());
    for (std::size_t i = 0; i < line.glyphs.size(); ++i)
        run.glyphs[i] = {font.font->encode(line.glyphs[i], line.characters[i]), line.moves[i]};
}

/// What is nearly where the advance leads needs no move; the rest is not added up, as each move is
/// measured from the place that was wanted.
std::size_t encode(std::span<const FontProgram::GlyphId> glyphs, std::span<const XPointF> positions,
                   std::span<const Core::String> texts, std::size_t from, FontStore::Entry& font,
                   TextRun& run) {
    run.font = font.font.get();
    run.glyphs.clear();
    run.origin = {positions[from].x, positions[from].y};
    const double tolerance = run.size * kOffPlace;
    double x = positions[from].x;
    std::size_t i = from;
    for (; i < glyphs.size() && std::abs(positions[i].y - run.origin.y) <= tolerance; ++i) {
        const double move = positions[i].x - x;
        const bool isMoved = std::abs(move) > tolerance;
        const GlyphCode code = texts.empty() ? font.font->encode(glyphs[i], std::u32string_view())
                                             : font.font->encode(glyphs[i], charactersOf(texts[i]));
        run.glyphs.push_back({code, isMoved ? static_cast<float>(move) : 0});
        x += (isMoved ? move : 0) + font.font->advance(glyphs[i]) * run.size / kEm;
    }
    return i;
}

Box glyphBox(const FontProgram& program, FontProgram::GlyphId glyph) {
    BoxSink sink;
    program.decomposeGlyph(glyph, sink);
    if (sink.box.isEmpty() && program.getKind() == Fonts::FontKind::type1 &&
        !program.isEmbeddable()) {
        const Fonts::FontMetrics& metrics = program.getMetrics();
        sink.box.hold({0, metrics.descent});
        sink.box.hold({program.getAdvance(glyph), metrics.ascent});
    }
    return sink.box;
}

}  // namespace Drawing::Print
