#pragma once

#include "Fonts/OpenTypeFont.h"

namespace Fonts {

/// An OpenType font with CFF outlines.
class FONTS_API CffFont : public OpenTypeFont {
public:
    explicit CffFont(std::unique_ptr<const OpenTypeFace> face);
    ~CffFont() override;

    [[nodiscard]] FontKind getKind() const override { return FontKind::openTypeCff; }
};

}  // namespace Fonts
