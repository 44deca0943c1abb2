#include "Fonts/internal/Type1Face.h"

#include "Fonts/FontException.h"
#include "Fonts/internal/OpenTypeMetrics.h"

#include FT_ADVANCES_H
#include FT_FONT_FORMATS_H
#include FT_OUTLINE_H
#include FT_TYPE1_TABLES_H

#include <array>
#include <cmath>
#include <filesystem>
#include <string_view>
#include <utility>

namespace Fonts {

namespace {

constexpr float kEm = 1000;

OutlineRecorder& recorder(void* data) {
    return *static_cast<OutlineRecorder*>(data);
}

float value(FT_Pos units) {
    return static_cast<float>(units);
}

int moveTo(const FT_Vector* to, void* data) {
    if (!recorder(data).empty())
        recorder(data).close();
    recorder(data).moveTo(value(to->x), value(to->y));
    return 0;
}

int lineTo(const FT_Vector* to, void* data) {
    recorder(data).lineTo(value(to->x), value(to->y));
    return 0;
}

/// Type 1 outlines have no quadratic curves: stops the outline.
int conicTo(const FT_Vector*, const FT_Vector*, void*) {
    return 1;
}

int curveTo(const FT_Vector* one, const FT_Vector* two, const FT_Vector* to, void* data) {
    recorder(data).curveTo(value(one->x), value(one->y), value(two->x), value(two->y), value(to->x),
                           value(to->y));
    return 0;
}

FreeTypePtr<FT_Library> startFreeType(const FontBytes& bytes) {
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != 0)
        throw FontException(bytes.name(), "cannot be opened: FreeType does not start");
    return FreeTypePtr<FT_Library>(library);
}

FreeTypePtr<FT_Face> openFace(FT_Library library, const FontBytes& bytes) {
    FT_Face opened = nullptr;
    const auto file = bytes.span();
    const int error =
        FT_New_Memory_Face(library, file.data(), static_cast<FT_Long>(file.size()), 0, &opened);
    FreeTypePtr<FT_Face> face(opened);
    if (error != 0 || std::string_view(FT_Get_Font_Format(opened)) != "Type 1" ||
        face->num_glyphs <= 0)
        throw FontException(bytes.name(), "is damaged, or no Type 1 font");
    return face;
}

}  // namespace

std::string figuresBeside(const std::string& fontFile) {
    for (const char* extension : {".afm", ".AFM", ".pfm"}) {
        std::error_code ignored;
        const auto figures = std::filesystem::path(fontFile).replace_extension(extension);
        if (std::filesystem::exists(figures, ignored))
            return figures.string();
    }
    return {};
}

Type1Face::Type1Face(FontBytes bytes)
    : bytes_(std::move(bytes)),
      library_(startFreeType(bytes_)),
      face_(openFace(library_.get(), bytes_)),
      licenceBits_(FT_Get_FSType_Flags(face_.get())) {
    readGlyphs();
    readCharacters();
    metrics_ = readMetrics();
    attachKerning();
}

void Type1Face::attachKerning() {
    const std::string figures = figuresBeside(bytes_.name());
    if (!figures.empty())
        FT_Attach_File(face_.get(), figures.c_str());
    hasKerning_ = FT_HAS_KERNING(face_.get());
}

void Type1Face::readGlyphs() {
    glyphs_.resize(static_cast<std::size_t>(face_->num_glyphs));
    for (std::size_t i = 0; i < glyphs_.size(); ++i) {
        const auto number = static_cast<FT_UInt>(i);
        std::array<char, 128> name{};
        FT_Get_Glyph_Name(face_.get(), number, name.data(), name.size());
        glyphs_[i].name = name.data();
        FT_Fixed advance = 0;
        FT_Get_Advance(face_.get(), number, FT_LOAD_NO_SCALE, &advance);
        glyphs_[i].advance = toThousandths(advance);
    }
}

/// By Unicode where the glyph names tell it, else by the codes of the font's own encoding.
void Type1Face::readCharacters() {
    FT_Face face = face_.get();
    if (FT_Select_Charmap(face, FT_ENCODING_UNICODE) != 0 && face->num_charmaps > 0)
        FT_Set_Charmap(face, face->charmaps[0]);
    FT_UInt glyph = 0;
    for (FT_ULong character = FT_Get_First_Char(face, &glyph); glyph != 0;
         character = FT_Get_Next_Char(face, character, &glyph))
        characters_.emplace(static_cast<char32_t>(character), glyph);
}

FontMetrics Type1Face::readMetrics() const {
    PS_FontInfoRec info{};
    FT_Get_PS_Font_Info(face_.get(), &info);
    const char* postScriptName = FT_Get_Postscript_Name(face_.get());
    const Core::String name = postScriptName ? postScriptName : bytes_.name();
    return {
        plainPostScriptName(name),
        face_->family_name ? face_->family_name : name,
        info.full_name ? info.full_name : name,
        toThousandths(face_->ascender),
        toThousandths(face_->descender),
        topOf(U'H'),
        topOf(U'x'),
        toThousandths(face_->underline_position),
        toThousandths(face_->underline_thickness),
        static_cast<float>(info.italic_angle),
    };
}

float Type1Face::topOf(char32_t character) const {
    const auto found = characters_.find(character);
    if (found == characters_.end() ||
        FT_Load_Glyph(face_.get(), found->second, FT_LOAD_NO_SCALE) != 0)
        return 0;
    return toThousandths(face_->glyph->metrics.horiBearingY);
}

float Type1Face::toThousandths(FT_Pos units) const {
    return value(units) * kEm / static_cast<float>(face_->units_per_EM);
}

FontProgram::GlyphId Type1Face::glyphOf(char32_t character) const {
    const auto found = characters_.find(character);
    return found == characters_.end() ? FontProgram::kMissingGlyph : found->second;
}

int Type1Face::kerning(std::uint32_t first, std::uint32_t second) const {
    if (!hasKerning_ || glyphs_.size() > PairCache::kGlyphs)
        return 0;
    return kerningCache_.get(first, second, [&] { return readKerning(first, second); });
}

int Type1Face::readKerning(std::uint32_t first, std::uint32_t second) const {
    const std::scoped_lock lock(faceLock_);
    FT_Vector apart{};
    FT_Get_Kerning(face_.get(), first, second, FT_KERNING_UNSCALED, &apart);
    return -static_cast<int>(std::lround(toThousandths(apart.x)));
}

OutlineRecorder Type1Face::outline(std::uint32_t glyph) const {
    const std::scoped_lock lock(faceLock_);
    OutlineRecorder outline(kEm / static_cast<float>(face_->units_per_EM));
    if (FT_Load_Glyph(face_.get(), glyph, FT_LOAD_NO_SCALE) != 0)
        return outline;
    const FT_Outline_Funcs functions{moveTo, lineTo, conicTo, curveTo, 0, 0};
    FT_Outline_Decompose(&face_->glyph->outline, &functions, &outline);
    if (!outline.empty())
        outline.close();
    return outline;
}

}  // namespace Fonts
