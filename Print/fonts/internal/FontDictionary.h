#pragma once

#include "Fonts/GlyphSink.h"
#include "Print/fonts/internal/GlyphNames.h"
#include "Print/fonts/internal/ProgramText.h"

#include <array>
#include <string>
#include <vector>

namespace Drawing::Print {

/// The box around outlines, which may be those of many glyphs, in 1/1000 em.
class OutlineBox : public Fonts::GlyphSink {
public:
    void moveTo(float x, float y) override { add(x, y); }
    void lineTo(float x, float y) override { add(x, y); }
    void curveTo(float x1, float y1, float x2, float y2, float x3, float y3) override;
    void close() override {}

    /// "[left bottom right top]" in units of which `unit` make 1/1000 em.
    [[nodiscard]] std::string toText(double unit) const;

private:
    void add(float x, float y);

    std::array<float, 4> box_{};
};

/// What the dictionaries of all kinds of fonts have in common (PLRM 5.2), in the order of writing.
namespace FontDictionary {

/// Opens the dictionary: kind, the font's own name, `matrix` and box ("[a b c d e f]").
void begin(ProgramText& out, int fontType, const std::string& fontName, const std::string& matrix,
           const std::string& box);
/// /Encoding: StandardEncoding and what differs from it.
void encoding(ProgramText& out, const std::vector<NamedGlyph>& glyphs);
/// /FontInfo with the text of all glyphs whose names do not tell it; nothing if there are none.
void unicode(ProgramText& out, const std::vector<NamedGlyph>& glyphs);
/// Closes the dictionary and defines the font `partName`.
void end(ProgramText& out, const std::string& partName);

}  // namespace FontDictionary

}  // namespace Drawing::Print
