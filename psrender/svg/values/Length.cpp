#include "psrender/svg/values/Length.h"

#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/NumberScanner.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace psrender::svg {

namespace {

struct FixedUnit {
    std::string_view name;
    double pixels;
};

constexpr double kPixelsPerInch = 96;
constexpr std::array kFixedUnits{
    FixedUnit{"", 1},
    FixedUnit{"px", 1},
    FixedUnit{"pt", kPixelsPerInch / 72},
    FixedUnit{"pc", kPixelsPerInch / 6},
    FixedUnit{"in", kPixelsPerInch},
    FixedUnit{"cm", kPixelsPerInch / 2.54},
    FixedUnit{"mm", kPixelsPerInch / 25.4},
    FixedUnit{"q", kPixelsPerInch / 101.6},
};

std::optional<double> unitInPixels(std::string_view unit, double fontSize) {
    for (const FixedUnit& fixed : kFixedUnits)
        if (equalsIgnoringCase(unit, fixed.name))
            return fixed.pixels;
    if (equalsIgnoringCase(unit, "em"))
        return fontSize;
    if (equalsIgnoringCase(unit, "ex"))
        return fontSize / 2;
    return std::nullopt;
}

}  // namespace

double Measures::along(Axis axis) const {
    if (axis == Axis::other)
        return std::hypot(width, height) / std::numbers::sqrt2;
    return axis == Axis::horizontal ? width : height;
}

std::optional<Length> scanLength(NumberScanner& scanner, double fontSize) {
    const std::optional<double> number = scanner.number();
    if (!number)
        return std::nullopt;
    const std::string_view unit = scanner.word();
    if (unit == "%")
        return Length{*number / 100, true};
    const std::optional<double> pixels = unitInPixels(unit, fontSize);
    return pixels ? std::optional(Length{*number * *pixels, false}) : std::nullopt;
}

std::optional<Length> parseLength(std::string_view text, double fontSize) {
    NumberScanner scanner(trimmed(text));
    const std::optional<Length> length = scanLength(scanner, fontSize);
    return scanner.atEnd() ? length : std::nullopt;
}

std::optional<double> parseOpacity(std::string_view text) {
    NumberScanner scanner(trimmed(text));
    const std::optional<double> number = scanner.number();
    if (!number)
        return std::nullopt;
    const double share = scanner.skip('%') ? *number / 100 : *number;
    return scanner.atEnd() ? std::optional(std::clamp(share, 0.0, 1.0)) : std::nullopt;
}

}  // namespace psrender::svg
