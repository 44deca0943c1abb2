#pragma once

#include "Fonts/TTFFont.h"
#include "Print/fonts/internal/PrintFont.h"

namespace Drawing::Print {

/// TrueType outlines as a Type 42 font (PLRM 5.8; Adobe Technical Note 5012): a subset of the
/// file, which all parts share.
class Type42Font : public PrintFont {
public:
    Type42Font(const Core::SmartPtr<Fonts::TTFFont>& program, std::uint32_t number, bool keepHints);
    ~Type42Font() override;

protected:
    void define(Core::IO::Stream& stream) const override;

private:
    Core::SmartPtr<Fonts::TTFFont> font_;
    bool keepHints_;
};

}  // namespace Drawing::Print
