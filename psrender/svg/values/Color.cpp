#include "psrender/svg/values/Color.h"

#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/NumberScanner.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace psrender::svg {

namespace {

std::uint8_t toByte(double value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
}

std::optional<unsigned> hexDigit(char c) {
    if (isDigit(c))
        return static_cast<unsigned>(c - '0');
    const char lower = toLower(c);
    if (lower >= 'a' && lower <= 'f')
        return static_cast<unsigned>(lower - 'a' + 10);
    return std::nullopt;
}

/// Three or four components of one digit each, or of two.
std::optional<Rgba> hexColor(std::string_view digits) {
    const std::size_t width = digits.size() > 4 ? 2 : 1;
    const std::size_t count = digits.size() / width;
    if (digits.size() % width != 0 || count < 3 || count > 4)
        return std::nullopt;
    std::array<unsigned, 4> component{0, 0, 0, 255};
    for (std::size_t i = 0; i < count; ++i) {
        const auto high = hexDigit(digits[i * width]);
        const auto low = hexDigit(digits[i * width + width - 1]);
        if (!high || !low)
            return std::nullopt;
        component[i] = *high * 16 + *low;
    }
    return Rgba{{static_cast<std::uint8_t>(component[0]), static_cast<std::uint8_t>(component[1]),
                 static_cast<std::uint8_t>(component[2])},
                component[3] / 255.0};
}

struct Argument {
    double value = 0;
    bool isPercentage = false;

    [[nodiscard]] double outOf(double whole) const {
        return isPercentage ? value / 100 * whole : value;
    }
};

struct Arguments {
    std::array<Argument, 4> list{};
    std::size_t count = 0;
};

/// What stands between the parentheses, separated by commas, blanks or a slash.
std::optional<Arguments> readArguments(NumberScanner& scanner) {
    Arguments result;
    scanner.skipSpace();
    while (!scanner.skip(')')) {
        const auto number = scanner.number();
        if (!number || result.count == result.list.size())
            return std::nullopt;
        const std::string_view unit = scanner.word();
        if (!unit.empty() && unit != "%" && unit != "deg")
            return std::nullopt;
        result.list[result.count++] = {*number, unit == "%"};
        scanner.skipCommaSpace();
        if (scanner.skip('/'))
            scanner.skipSpace();
    }
    return result.count >= 3 ? std::optional(result) : std::nullopt;
}

/// One of the channels of a hue; `turn` is the channel's place on the wheel in twelfths.
double channelOfHue(double turn, double hue, double saturation, double lightness) {
    const double k = std::fmod(turn + hue / 30, 12);
    const double amplitude = saturation * std::min(lightness, 1 - lightness);
    return 255 * (lightness - amplitude * std::max(-1.0, std::min({k - 3, 9 - k, 1.0})));
}

scene::Color fromHsl(const Arguments& arguments) {
    const double turned = std::fmod(arguments.list[0].value, 360);
    const double hue = turned < 0 ? turned + 360 : turned;
    const double saturation = std::clamp(arguments.list[1].value / 100, 0.0, 1.0);
    const double lightness = std::clamp(arguments.list[2].value / 100, 0.0, 1.0);
    return {toByte(channelOfHue(0, hue, saturation, lightness)),
            toByte(channelOfHue(8, hue, saturation, lightness)),
            toByte(channelOfHue(4, hue, saturation, lightness))};
}

scene::Color fromRgb(const Arguments& arguments) {
    return {toByte(arguments.list[0].outOf(255)), toByte(arguments.list[1].outOf(255)),
            toByte(arguments.list[2].outOf(255))};
}

std::optional<Rgba> functionColor(std::string_view text) {
    NumberScanner scanner(text);
    const std::string_view name = scanner.word();
    const bool isHsl = equalsIgnoringCase(name, "hsl") || equalsIgnoringCase(name, "hsla");
    const bool isRgb = equalsIgnoringCase(name, "rgb") || equalsIgnoringCase(name, "rgba");
    if (!(isHsl || isRgb) || !scanner.skip('('))
        return std::nullopt;
    const std::optional<Arguments> arguments = readArguments(scanner);
    if (!arguments || !scanner.atEnd())
        return std::nullopt;
    const double alpha = arguments->count == 4 ? arguments->list[3].outOf(1) : 1;
    return Rgba{isHsl ? fromHsl(*arguments) : fromRgb(*arguments), std::clamp(alpha, 0.0, 1.0)};
}

}  // namespace

std::optional<Rgba> parseColor(std::string_view text) {
    const std::string_view value = trimmed(text);
    if (value.empty())
        return std::nullopt;
    if (value.front() == '#')
        return hexColor(value.substr(1));
    if (value.back() == ')')
        return functionColor(value);
    if (equalsIgnoringCase(value, "transparent"))
        return Rgba{{}, 0};
    const std::optional<scene::Color> color = namedColor(value);
    return color ? std::optional(Rgba{*color, 1}) : std::nullopt;
}

}  // namespace psrender::svg
