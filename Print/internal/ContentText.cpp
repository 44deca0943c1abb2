// Text on pages: fonts and strings.

#include "Print/internal/ContentWriter.h"

#include <cstddef>

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

/// One string, or strings and the moves between them in an array.
void ContentWriter::writeStrings(const TextRun& run, std::size_t from, std::size_t to,
                                 bool asOutline) {
    bool moves = asOutline;
    for (std::size_t i = from; i < to; ++i)
        moves |= run.glyphs[i].move != 0;
    const int decimals = decimals_ < 0 ? decimals_ : decimals_ + 1;
    if (!moves && run.spacing != 0) {
        out_.number(run.spacing, decimals);
        out_ << " 0";
    }
    if (moves)
        out_ << '[';
    bool isOpen = false;
    std::size_t lineBegin = out_.size();
    for (std::size_t i = from; i < to; ++i) {
        const TextRun::Glyph& glyph = run.glyphs[i];
        if (glyph.move != 0) {
            if (std::exchange(isOpen, false))
                out_ << ')';
            if (out_.size() - lineBegin > kLineLength) {
                out_ << '\n';
                lineBegin = out_.size();
            }
            out_.number(glyph.move, decimals);
        }
        if (!std::exchange(isOpen, true))
            out_ << '(';
        writeCode(glyph.code.code, out_);
    }
    out_ << ')';
    if (moves)
        out_ << ']';
    if (asOutline) {
        out_.number(run.spacing, decimals);
        out_ << " Z\n";
    } else if (moves && run.spacing != 0) {
        out_.number(run.spacing, decimals);
        out_ << " A\n";
    } else {
        out_ << (moves ? "T\n" : run.spacing != 0 ? "a\n" : "t\n");
    }
}

}  // namespace Drawing::Print
