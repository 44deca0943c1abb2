#pragma once

#include "Fonts/StandardFont.h"
#include "Print/fonts/internal/PrintFont.h"

namespace Drawing::Print {

/// One of the 14 standard fonts, which the interpreter has by itself: each part is a copy of it
/// with another encoding (PLRM 5.9.1).
class StandardPrintFont : public PrintFont {
public:
    StandardPrintFont(const Core::SmartPtr<Fonts::StandardFont>& program, std::uint32_t number);
    ~StandardPrintFont() override;

    [[nodiscard]] std::string neededFont() const override;

protected:
    void define(Core::IO::Stream& stream) const override;
};

/// The same with the program of an installed font of its design (the URW base fonts), so that the
/// document holds all it needs; the figures stay those of the standard font. Raises
/// `Fonts::FontException` if none is installed.
[[nodiscard]] std::unique_ptr<PrintFont> embedStandardFont(
    const Core::SmartPtr<Fonts::StandardFont>& program, std::uint32_t number);

}  // namespace Drawing::Print
