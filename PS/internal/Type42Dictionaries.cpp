#include "PS/internal/Type42Dictionaries.h"

#include "Core/StringFormatStream.h"
#include "PS/internal/HexDigits.h"

#include <cstdint>

namespace Drawing::PS {

namespace {

using Core::StringFormatStream;

constexpr int kBlock = 256;
constexpr int kEntriesALine = 8;

/// Of a block or code, which are bytes: a font has 65,535 glyphs at most.
std::string hexByte(int value) {
    return std::string(hexDigits(static_cast<std::uint8_t>(value)));
}

bool endsLine(int code) {
    return code % kEntriesALine == kEntriesALine - 1;
}

std::string makeEncoding() {
    std::string text = "/Encoding 256 array\n";
    for (int code = 0; code < kBlock; ++code) {
        text += " dup " + std::to_string(code) + " /c" + hexByte(code) + " put ";
        if (endsLine(code))
            text += '\n';
    }
    return text + "readonly def\n";
}

/// All glyphs of the block, shown or not. The line ends are counted on the code, so a line with
/// a skipped entry is shorter.
std::string charStrings(int block, const TTFToType42& font) {
    std::string text = "/CharStrings 257 dict dup begin\n/.notdef 0 def\n";
    for (int code = 0; code < kBlock && font.getCmapRecordCount() > 0; ++code) {
        const int glyph = block * kBlock + code;
        if (glyph < 1 || glyph >= font.getGlyphCount())
            continue;
        text.append("/c").append(hexDigits(static_cast<std::uint8_t>(code)));
        text.append(" ").append(std::to_string(glyph)).append(" def ");
        if (endsLine(code))
            text += '\n';
    }
    return text + "end readonly def\n";
}

std::string blockFont(const std::string& name, int block, const TTFToType42& font) {
    static const std::string encoding = makeEncoding();
    const TTFToType42::BoundingBox& box = font.getBoundingBox();
    const Core::String bounds = StringFormatStream(u"/FontBBox [{0} {1} {2} {3}] def\n")
                                << box.xMin << box.yMin << box.xMax << box.yMax;
    return "10 dict begin\n/FontName /" + name + "_" + hexByte(block) +
           " def\n/FontType 42 def\n/FontMatrix [1 0 0 1 0 0] def\n" + bounds.toUtf8() +
           "/PaintType 0 def\n/sfnts " + name + "_sfnts def\n" + encoding +
           charStrings(block, font) + "FontName currentdict end definefont pop\n";
}

std::string compositeFont(const std::string& name, int blocks) {
    std::string encoding = "/Encoding [\n";
    std::string descendants = "/FDepVector [\n";
    for (int block = 0; block < blocks; ++block) {
        encoding += std::to_string(block) + "\n";
        descendants += "/" + name + "_" + hexByte(block) + " findfont\n";
    }
    return "16 dict begin\n/FontName /" + name +
           "_font def\n/FontType 0 def\n/FontMatrix [1 0 0 1 0 0] def\n/FMapType 2 def\n" +
           encoding + "] def\n" + descendants + "] def\nFontName currentdict end definefont pop\n";
}

}  // namespace

void writeType42Dictionaries(Core::IO::Stream& stream, const std::string& name,
                             const TTFToType42& font) {
    const int blocks = font.getGlyphCount() / kBlock + 1;
    for (int block = 0; block < blocks; ++block)
        stream.write(blockFont(name, block, font));
    stream.write(compositeFont(name, blocks));
}

}  // namespace Drawing::PS
