#pragma once

#include "Core/Object.h"
#include "Core/String.h"
#include "Drawing/Export.h"

#include <cstdint>

namespace Drawing {

enum class FontSlant : std::int32_t { upright = 0, italic = 1, oblique = 2 };

/// Which font a text is to be shown in: a description, not the font's data. Immutable, so it
/// may be shared freely.
class DRAWING_API Font : public Core::Object {
public:
    static constexpr int kRegular = 400;
    static constexpr int kBold = 700;

    /// `size` in points; `weight` from 100 (thin) to 900 (black).
    Font(Core::String family, float size, int weight = kRegular,
         FontSlant slant = FontSlant::upright);
    ~Font() override;

    [[nodiscard]] const Core::String& getFontFamily() const { return family_; }
    [[nodiscard]] float getFontSize() const { return size_; }
    [[nodiscard]] int getWeight() const { return weight_; }
    [[nodiscard]] FontSlant getSlant() const { return slant_; }
    /// The same for two descriptions that differ at most in size, so that they share what a
    /// document holds of the font. Letters, digits, blanks, hyphens and underscores only.
    [[nodiscard]] const Core::String& getHashKey() const { return hashKey_; }

private:
    Core::String family_;
    float size_;
    int weight_;
    FontSlant slant_;
    Core::String hashKey_;
};

}  // namespace Drawing
