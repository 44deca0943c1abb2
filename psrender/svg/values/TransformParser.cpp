#include "psrender/svg/values/TransformParser.h"

#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/NumberScanner.h"

#include <array>

namespace psrender::svg {

using scene::Affine;

namespace {

struct Arguments {
    std::array<double, 6> value{};
    std::size_t count = 0;
};

/// Style sheets write units here; the ones that change nothing are passed over.
bool skipUnit(NumberScanner& scanner) {
    const std::string_view unit = scanner.word();
    return unit.empty() || unit == "px" || unit == "deg";
}

std::optional<Arguments> readArguments(NumberScanner& scanner) {
    Arguments result;
    scanner.skipSpace();
    while (!scanner.skip(')')) {
        const auto number = scanner.number();
        if (!number || result.count == result.value.size() || !skipUnit(scanner))
            return std::nullopt;
        result.value[result.count++] = *number;
        scanner.skipCommaSpace();
    }
    return result;
}

Affine rotationAbout(double degrees, double x, double y) {
    return Affine::translation(x, y) * Affine::rotation(degrees) * Affine::translation(-x, -y);
}

/// A function with too few or too many arguments is wrong.
std::optional<Affine> toMap(std::string_view name, const Arguments& arguments) {
    const auto& [v, count] = arguments;
    if (name == "matrix" && count == 6)
        return Affine{v[0], v[1], v[2], v[3], v[4], v[5]};
    if (name == "translate" && (count == 1 || count == 2))
        return Affine::translation(v[0], v[1]);
    if (name == "scale" && (count == 1 || count == 2))
        return Affine::scaling(v[0], count == 1 ? v[0] : v[1]);
    if (name == "rotate" && (count == 1 || count == 3))
        return rotationAbout(v[0], v[1], v[2]);
    if (name == "skewX" && count == 1)
        return Affine::skew(v[0], 0);
    if (name == "skewY" && count == 1)
        return Affine::skew(0, v[0]);
    return std::nullopt;
}

std::optional<Affine> readFunction(NumberScanner& scanner) {
    const std::string_view name = scanner.word();
    scanner.skipSpace();
    if (!scanner.skip('('))
        return std::nullopt;
    const std::optional<Arguments> arguments = readArguments(scanner);
    return arguments ? toMap(name, *arguments) : std::nullopt;
}

}  // namespace

std::optional<Affine> parseTransform(std::string_view text) {
    Affine result;
    NumberScanner scanner(trimmed(text));
    if (scanner.rest() == "none")
        return result;
    while (!scanner.atEnd()) {
        const std::optional<Affine> map = readFunction(scanner);
        if (!map)
            return std::nullopt;
        result = result * *map;
        scanner.skipCommaSpace();
    }
    return result.isFinite() ? std::optional(result) : std::nullopt;
}

}  // namespace psrender::svg
