// Text on pages: fonts and strings.

#include "Print/internal/ContentWriter.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

namespace Drawing::Print {

namespace {

/// Glyphs in one show: each takes four characters at most, and DSC lines hold 255.
constexpr std::size_t kGlyphsAtOnce = 50;
constexpr std::size_t kLineLength = 180;

void writeCode(std::uint8_t code, TextBuffer& out) {
    char* to = out.reserve(4);
    if (code == '(' || code == ')' || code == '\\') {
        *to++ = '\\';
        *to++ = static_cast<char>(code);
    } else if (code >= 0x20 && code < 0x7F) {
        *to++ = static_cast<char>(code);
    } else {
        *to++ = '\\';
        for (const int shift : {6, 3, 0})
            *to++ = static_cast<char>('0' + (code >> shift & 7));
    }
    out.commit(to);
}

}  // namespace

void ContentWriter::selectFont(const PrintFont& font, std::uint16_t part, double size) {
    Known& now = known();
    if (now.font == &font && now.fontPart == part && now.fontSize == size)
        return;
    out_ << '/' << font.partName(part);
    out_.number(size);
    out_ << " tf\n";
    now.font = &font;
    now.fontPart = part;
    now.fontSize = size;
}

/// The font goes before the point, as it is often known already; later parts of the font show on
/// from where the one before ended.
void ContentWriter::writeRun(const TextRun& run, bool asOutline) {
    parts_->usesText = true;
    bool isFirst = true;
    for (std::size_t from = 0, to = 0; from < run.glyphs.size(); from = to) {
        const std::uint16_t part = run.glyphs[from].code.part;
        while (to < run.glyphs.size() && to - from < kGlyphsAtOnce &&
               run.glyphs[to].code.part == part)
            ++to;
        selectFont(*run.font, part, run.size);
        if (std::exchange(isFirst, false)) {
            writePoint(run.origin.x, run.origin.y);
            out_ << " m";
        }
        writeStrings(run, from, to, asOutline);
    }
}

namespace {

using Glyphs = std::span<const TextRun::Glyph>;

bool hasMoves(Glyphs glyphs) {
    return std::ranges::any_of(glyphs, [](const TextRun::Glyph& glyph) { return glyph.move != 0; });
}

/// "(string)" for glyphs that follow each other, or strings and the moves between them.
void writeGlyphs(Glyphs glyphs, int decimals, TextBuffer& out) {
    bool isOpen = false;
    std::size_t lineBegin = out.size();
    for (const TextRun::Glyph& glyph : glyphs) {
        if (glyph.move != 0) {
            if (std::exchange(isOpen, false))
                out << ')';
            if (out.size() - lineBegin > kLineLength) {
                out << '\n';
                lineBegin = out.size();
            }
            out.number(glyph.move, decimals);
        }
        if (!std::exchange(isOpen, true))
            out << '(';
        writeCode(glyph.code.code, out);
    }
    out << ')';
}

}  // namespace

/// One string, or strings and the moves between them in an array, and the procedure that shows
/// them.
void ContentWriter::writeStrings(const TextRun& run, std::size_t from, std::size_t to,
                                 bool asOutline) {
    const Glyphs glyphs = Glyphs(run.glyphs).subspan(from, to - from);
    const int decimals = decimals_ < 0 ? decimals_ : decimals_ + 1;
    const bool isArray = asOutline || hasMoves(glyphs);
    const bool isSpaced = run.spacing != 0;
    if (!isArray) {
        if (isSpaced) {
            out_.number(run.spacing, decimals);
            out_ << " 0";
        }
        writeGlyphs(glyphs, decimals, out_);
        out_ << (isSpaced ? "a\n" : "t\n");
        return;
    }
    out_ << '[';
    writeGlyphs(glyphs, decimals, out_);
    out_ << ']';
    if (asOutline || isSpaced)
        out_.number(run.spacing, decimals);
    out_ << (asOutline ? " Z\n" : isSpaced ? " A\n" : "T\n");
}

}  // namespace Drawing::Print
