#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace psrender::svg {

/// What a percentage is a part of: the viewport's width, its height, or its diagonal over
/// the square root of two.
enum class Axis : std::uint8_t { horizontal, vertical, other };

/// What relative lengths are measured by, in user units.
struct Measures {
    double width = 0;
    double height = 0;
    double fontSize = 16;

    [[nodiscard]] double along(Axis axis) const;

    friend bool operator==(const Measures&, const Measures&) = default;
};

/// A length in user units or as a share of the viewport. Units of fixed size and those that
/// go by the font are user units already.
struct Length {
    double value = 0;
    bool isShare = false;

    [[nodiscard]] double resolve(const Measures& measures, Axis axis) const {
        return isShare ? value * measures.along(axis) : value;
    }

    friend bool operator==(const Length&, const Length&) = default;
};

/// A number with an optional unit and nothing after it.
std::optional<Length> parseLength(std::string_view text, double fontSize);

class NumberScanner;
/// The same from the middle of a list.
std::optional<Length> scanLength(NumberScanner& scanner, double fontSize);

/// A number or a percentage, brought into 0 to 1.
std::optional<double> parseOpacity(std::string_view text);

}  // namespace psrender::svg
