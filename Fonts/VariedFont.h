#pragma once

#include "Fonts/OpenTypeFont.h"

namespace Fonts {

/// A variable font away from its usual place, say bolder: outlines and figures, and no program
/// that an interpreter could be given.
class FONTS_API VariedFont : public OpenTypeFont {
public:
    explicit VariedFont(std::unique_ptr<const OpenTypeFace> face);
    ~VariedFont() override;

    [[nodiscard]] FontKind getKind() const override { return FontKind::openTypeCff; }
    [[nodiscard]] Core::ByteArray getProgramData() const override { return {}; }
};

/// A font that holds nothing but pictures of its glyphs; its outlines are empty.
class FONTS_API PictureFont : public OpenTypeFont {
public:
    explicit PictureFont(std::unique_ptr<const OpenTypeFace> face);
    ~PictureFont() override;

    [[nodiscard]] FontKind getKind() const override { return FontKind::openTypeCff; }
    [[nodiscard]] Core::ByteArray getProgramData() const override { return {}; }
};

}  // namespace Fonts
