#pragma once

#include "Core/ByteArray.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <array>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

/// A font as FreeType reads it, to compare with.
class FreeTypeFile {
public:
    explicit FreeTypeFile(Core::ByteArray bytes) : bytes_(std::move(bytes)) {
        FT_Init_FreeType(&library_);
        if (FT_New_Memory_Face(library_, bytes_.data(), static_cast<FT_Long>(bytes_.size()), 0,
                               &face_) != 0)
            throw std::runtime_error("FreeType does not read the font");
    }
    FreeTypeFile(const FreeTypeFile&) = delete;
    FreeTypeFile& operator=(const FreeTypeFile&) = delete;
    ~FreeTypeFile() { FT_Done_FreeType(library_); }

    [[nodiscard]] std::uint32_t glyphCount() const {
        return static_cast<std::uint32_t>(face_->num_glyphs);
    }
    [[nodiscard]] std::string nameOf(std::uint32_t glyph) const {
        std::array<char, 128> name{};
        FT_Get_Glyph_Name(face_, glyph, name.data(), name.size());
        return name.data();
    }
    [[nodiscard]] float advanceOf(std::uint32_t glyph) const {
        load(glyph);
        return inThousandths(face_->glyph->metrics.horiAdvance);
    }
    [[nodiscard]] int closerOf(std::uint32_t first, std::uint32_t second) const {
        FT_Vector apart{};
        FT_Get_Kerning(face_, first, second, FT_KERNING_UNSCALED, &apart);
        return -static_cast<int>(std::lround(inThousandths(apart.x)));
    }
    /// Points of the outline, and their sum; equal for equal outlines and rarely for others.
    [[nodiscard]] std::pair<int, long> outlineSum(std::uint32_t glyph) const {
        load(glyph);
        const FT_Outline& outline = face_->glyph->outline;
        long sum = 0;
        for (int i = 0; i < outline.n_points; ++i)
            sum = sum * 31 % 1000003 + outline.points[i].x * 7 + outline.points[i].y;
        return {outline.n_points, sum};
    }

private:
    void load(std::uint32_t glyph) const {
        if (FT_Load_Glyph(face_, glyph, FT_LOAD_NO_SCALE) != 0)
            throw std::runtime_error("FreeType does not read glyph " + std::to_string(glyph));
    }
    [[nodiscard]] float inThousandths(FT_Pos units) const {
        return static_cast<float>(units) * 1000 / static_cast<float>(face_->units_per_EM);
    }

    Core::ByteArray bytes_;
    FT_Library library_ = nullptr;
    FT_Face face_ = nullptr;
};
