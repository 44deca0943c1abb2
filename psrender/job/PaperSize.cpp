#include "psrender/job/PaperSize.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <utility>

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

constexpr PaperSize inches(double width, double height) {
    return {width * kPointsAnInch, height * kPointsAnInch};
}

constexpr std::array kPapers{
    Named{"letter", inches(8.5, 11)},       Named{"legal", inches(8.5, 14)},
    Named{"tabloid", inches(11, 17)},       Named{"ledger", inches(17, 11)},
    Named{"executive", inches(7.25, 10.5)}, Named{"statement", inches(5.5, 8.5)},
    Named{"folio", inches(8.5, 13)},        Named{"ansi-c", inches(17, 22)},
    Named{"ansi-d", inches(22, 34)},        Named{"ansi-e", inches(34, 44)},
    Named{"arch-a", inches(9, 12)},         Named{"arch-b", inches(12, 18)},
    Named{"arch-c", inches(18, 24)},        Named{"arch-d", inches(24, 36)},
    Named{"arch-e", inches(36, 48)}};

constexpr int kSmallestSheet = 10;

/// Each sheet is half of the one before, cut across, in whole millimetres rounded down.
PaperSize halved(int width, int height, int times) {
    for (; times > 0; --times)
        height = std::exchange(width, height / 2);
    return millimetres(width, height);
}

std::optional<PaperSize> isoPaper(std::string_view name) {
    int number = 0;
    const auto* last = name.data() + name.size();
    if (name.size() < 2 || (name[0] != 'a' && name[0] != 'b') || name[1] == '-')
        return std::nullopt;
    const auto [end, error] = std::from_chars(name.data() + 1, last, number);
    if (error != std::errc() || end != last || number > kSmallestSheet)
        return std::nullopt;
    return name[0] == 'a' ? halved(841, 1189, number) : halved(1000, 1414, number);
}

std::optional<PaperSize> namedPaper(std::string_view name) {
    const auto* found = std::ranges::find(kPapers, name, &Named::name);
    return found == kPapers.end() ? isoPaper(name) : std::optional(found->size);
}

bool takeEnd(std::string_view& text, std::string_view end) {
    const bool has = text.ends_with(end);
    if (has)
        text.remove_suffix(end.size());
    return has;
}

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
    std::string_view rest = name;
    const bool isTurned = takeEnd(rest, "-landscape");
    if (!isTurned)
        takeEnd(rest, "-portrait");
    if (const auto size = namedPaper(rest))
        return isTurned ? PaperSize{size->height, size->width} : *size;
    rest = name;
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
