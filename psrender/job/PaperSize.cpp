#include "psrender/job/PaperSize.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>

namespace psrender {

namespace {

constexpr double kPointsAnInch = 72;
constexpr double kPointsAMillimetre = 72 / 25.4;

struct Unit {
    std::string_view name;
    double points;
};

constexpr std::array kUnits{Unit{"mm", kPointsAMillimetre}, Unit{"cm", 10 * kPointsAMillimetre},
                            Unit{"in", kPointsAnInch}, Unit{"pt", 1}};

struct Named {
    std::string_view name;
    PaperSize size;
};

constexpr PaperSize millimetres(double width, double height) {
    return {width * kPointsAMillimetre, height * kPointsAMillimetre};
}

constexpr std::array kPapers{Named{"a3", millimetres(297, 420)}, Named{"a4", millimetres(210, 297)},
                             Named{"a5", millimetres(148, 210)}, Named{"letter", {612, 792}},
                             Named{"legal", {612, 1008}}};

/// The number at the start of `text`, which is cut off.
std::optional<double> takeNumber(std::string_view& text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || !std::isfinite(value))
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return value;
}

std::optional<double> pointsOf(std::string_view unit) {
    const auto* found = std::ranges::find(kUnits, unit, &Unit::name);
    return found == kUnits.end() ? std::nullopt : std::optional(found->points);
}

}  // namespace

std::optional<double> parseLength(std::string_view text) {
    const auto number = takeNumber(text);
    const auto unit = pointsOf(text);
    return number && unit ? std::optional(*number * *unit) : std::nullopt;
}

std::optional<PaperSize> parsePaper(const std::string& text) {
    std::string name = text;
    std::ranges::transform(name, name.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    const auto* found = std::ranges::find(kPapers, name, &Named::name);
    if (found != kPapers.end())
        return found->size;
    std::string_view rest = name;
    const auto width = takeNumber(rest);
    if (!width || !rest.starts_with('x'))
        return std::nullopt;
    rest.remove_prefix(1);
    const auto height = takeNumber(rest);
    const auto unit = pointsOf(rest);
    if (!height || !unit || *width <= 0 || *height <= 0)
        return std::nullopt;
    return PaperSize{*width * *unit, *height * *unit};
}

}  // namespace psrender
