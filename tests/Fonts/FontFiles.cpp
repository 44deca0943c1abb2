#include "tests/Fonts/FontFiles.h"

#include "Core/StringFormatStream.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>

namespace FontFiles {

namespace {

class TextSink : public Fonts::GlyphSink {
public:
    void moveTo(float x, float y) override { add("M", {x, y}); }
    void lineTo(float x, float y) override { add("L", {x, y}); }
    void curveTo(float x1, float y1, float x2, float y2, float x3, float y3) override {
        add("C", {x1, y1, x2, y2, x3, y3});
    }
    void close() override { add("Z", {}); }

    std::string text;

private:
    void add(const char* step, std::initializer_list<float> numbers) {
        text += step;
        for (const float value : numbers)
            text += " " + std::to_string(std::lround(value));
        text += " ";
    }
};

}  // namespace

Core::ByteArray read(const std::string& fileName) {
    std::ifstream file(fileName, std::ios::binary);
    EXPECT_TRUE(file) << fileName << " is missing: install its package";
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    return Core::ByteArray(std::string_view(bytes));
}

Core::SmartPtr<Fonts::TTFFont> openTrueType(const std::string& fileName) {
    return Fonts::FontManager::openFontFile(fileName).dynamicCast<Fonts::TTFFont>();
}

std::vector<std::uint32_t> glyphsOf(const Program& program, const Core::String& text) {
    return program->mapGlyphs({text, 0});
}

std::string namesOf(const Program& program, const Core::String& text) {
    std::string names;
    for (const std::uint32_t glyph : glyphsOf(program, text))
        names +=
            (glyph == Fonts::FontProgram::kMissingGlyph ? "-"
                                                        : program->getGlyphName(glyph).toUtf8()) +
            " ";
    return names;
}

std::string kerningOf(const Program& program, const Core::String& twoCharacters) {
    const auto glyphs = glyphsOf(program, twoCharacters);
    const auto closer = program->getKerning(glyphs[0], glyphs[1], false);
    return closer ? std::to_string(*closer) : "-";
}

Core::SmartPtr<Drawing::Font> describe(const Core::String& family, int weight,
                                       Drawing::FontSlant slant) {
    return Core::makeObject<Drawing::Font>(family, 12.0f, weight, slant);
}

std::string outlineOf(const Fonts::FontProgram& program, std::uint32_t glyph) {
    TextSink sink;
    program.decomposeGlyph(glyph, sink);
    return sink.text;
}

std::uint32_t number(const Core::ByteArray& file, std::size_t offset, std::size_t bytes) {
    std::uint32_t value = 0;
    if (offset + bytes > file.size()) {
        ADD_FAILURE() << "offset " << offset << " lies outside the file";
        return 0;
    }
    for (std::size_t i = 0; i < bytes; ++i)
        value = value << 8 | file[offset + i];
    return value;
}

void setNumber(Core::ByteArray& file, std::size_t offset, std::size_t bytes, std::uint32_t value) {
    for (std::size_t i = bytes; i > 0; --i, value >>= 8)
        file[offset + i - 1] = static_cast<std::uint8_t>(value);
}

std::size_t entryOf(const Core::ByteArray& file, const std::string& tag) {
    for (std::size_t entry = 12; entry < 12 + 16 * number(file, 4, 2); entry += 16)
        if (file.view().substr(entry, 4) == tag)
            return entry;
    return 0;
}

std::size_t tableOf(const Core::ByteArray& file, const std::string& tag) {
    const std::size_t entry = entryOf(file, tag);
    return entry != 0 ? number(file, entry + 8, 4) : 0;
}

}  // namespace FontFiles
