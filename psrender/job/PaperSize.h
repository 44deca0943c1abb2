#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace psrender {

struct PaperSize {
    double width = 0;  ///< points
    double height = 0;
};

/// A length such as "10mm", "1.5cm", "2in" or "36pt" in points; nothing for anything else.
std::optional<double> parseLength(std::string_view text);

/// A0 to A10 and B0 to B10 (ISO 216), "Letter", "Legal" and their relatives in any case, or
/// WIDTHxHEIGHT with a unit behind the second number ("210x297mm"); nothing for anything else.
/// "-landscape" behind a name turns the sheet, "-portrait" leaves it upright.
std::optional<PaperSize> parsePaper(const std::string& text);

}  // namespace psrender
