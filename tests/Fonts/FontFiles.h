#pragma once

#include "Core/ByteArray.h"
#include "Core/SmartPtr.h"
#include "Drawing/Font.h"
#include "Fonts/FontManager.h"
#include "Fonts/FontProgram.h"
#include "Fonts/GlyphSink.h"
#include "Fonts/TTFFont.h"

#include <cstdint>
#include <string>
#include <vector>

/// Fonts of the packages fonts-dejavu-core, fonts-liberation and fonts-urw-base35, and what tests
/// ask of them.
namespace FontFiles {

constexpr const char* kDejaVuSans = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr const char* kLiberationSans =
    "/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf";
constexpr const char* kNimbusRomanCff =
    "/usr/share/fonts/opentype/urw-base35/NimbusRoman-Regular.otf";
constexpr const char* kNimbusRomanBare = "/usr/share/fonts/type1/urw-base35/NimbusRoman-Regular.t1";
constexpr const char* kNimbusRomanSegments = "/usr/share/fonts/X11/Type1/NimbusRoman-Regular.pfb";

using Program = Core::SmartPtr<Fonts::FontProgram>;

Core::ByteArray read(const std::string& fileName);
/// The program of a file that has TrueType outlines.
Core::SmartPtr<Fonts::TTFFont> openTrueType(const std::string& fileName);
std::vector<std::uint32_t> glyphsOf(const Program& program, const Core::String& text);
/// The names of the glyphs of a text, each followed by a blank; "-" for a missing one.
std::string namesOf(const Program& program, const Core::String& text);
/// The kerning of two characters as text, "-" if there is none.
std::string kerningOf(const Program& program, const Core::String& twoCharacters);
Core::SmartPtr<Drawing::Font> describe(const Core::String& family, int weight = 400,
                                       Drawing::FontSlant slant = Drawing::FontSlant::upright);

/// Writes an outline as text: "M x y L x y C x y x y x y Z", rounded to 1/1000 em.
std::string outlineOf(const Fonts::FontProgram& program, std::uint32_t glyph);

/// Numbers of a TrueType file; the test fails where they lie outside.
std::uint32_t number(const Core::ByteArray& file, std::size_t offset, std::size_t bytes);
void setNumber(Core::ByteArray& file, std::size_t offset, std::size_t bytes, std::uint32_t value);
/// Where a table's entry in the directory and the table lie; 0 for one that is not there.
std::size_t entryOf(const Core::ByteArray& file, const std::string& tag);
std::size_t tableOf(const Core::ByteArray& file, const std::string& tag);

}  // namespace FontFiles
