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

/// "A3", "A4", "A5", "Letter", "Legal" in any case, or WIDTHxHEIGHT with a unit behind the second
/// number ("210x297mm"); nothing for anything else.
std::optional<PaperSize> parsePaper(const std::string& text);

}  // namespace psrender
