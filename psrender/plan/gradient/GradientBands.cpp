#include "psrender/plan/gradient/GradientBands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace psrender::plan {

using scene::Color;
using scene::ColorStop;

namespace {

constexpr double kMostBands = 1000;   // within a stretch, but for what the stops ask for
constexpr double kMostStops = 20000;  // of all periods within a stretch

std::uint8_t level(double value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
}

int difference(const Color& a, const Color& b) {
    return std::max(
        {std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue)});
}

/// Bands that follow each other, equal neighbours being one.
class Bands {
public:
    explicit Bands(const Stretch& stretch) : stretch_(stretch) {}

    void add(double begin, const Color& color) {
        begin = std::max(begin, stretch_.from);
        if (begin >= stretch_.to)
            return;
        if (!bands.empty() && begin <= bands.back().begin)
            bands.pop_back();
        if (bands.empty() || bands.back().color != color)
            bands.push_back({begin, color});
    }
    /// From 0 to 1 along the gradient, moved by `offset`.
    void addPeriod(const ColorStops& stops, double offset) {
        add(offset, stops.front().color);
        for (std::size_t i = 1; i < stops.size(); ++i)
            addRun(stops[i - 1], stops[i], offset);
        add(offset + stops.back().position, stops.back().color);
    }

    std::vector<Band> bands;

private:
    void addRun(const ColorStop& a, const ColorStop& b, double offset) {
        const double length = b.position - a.position;
        const double finest = std::max(stretch_.finest, (stretch_.to - stretch_.from) / kMostBands);
        const double colors = difference(a.color, b.color) / stretch_.levels + 1;
        const auto count =
            static_cast<int>(std::max(1.0, std::ceil(std::min(colors, length / finest))));
        if (length > 0 && offset + b.position > stretch_.from)
            for (int i = 0; i < count; ++i)
                add(offset + a.position + length * i / count,
                    between(a, b, (i + 0.5) / count).color);
    }

    const Stretch& stretch_;
};

ColorStops reversed(ColorStops stops) {
    std::ranges::reverse(stops);
    for (ColorStop& stop : stops)
        stop.position = 1 - stop.position;
    return stops;
}

/// The colour that a period has from afar.
Color mean(const ColorStops& stops) {
    std::array<double, 3> sum{};
    const auto add = [&sum](const ColorStop& stop, double weight) {
        sum[0] += weight * stop.color.red;
        sum[1] += weight * stop.color.green;
        sum[2] += weight * stop.color.blue;
    };
    add(stops.front(), stops.front().position);
    for (std::size_t i = 1; i < stops.size(); ++i)
        for (const std::size_t end : {i - 1, i})
            add(stops[end], (stops[i].position - stops[i - 1].position) / 2);
    add(stops.back(), 1 - stops.back().position);
    return {level(sum[0]), level(sum[1]), level(sum[2])};
}

}  // namespace

std::vector<Band> bandsOf(const ColorStops& stops, scene::Spread spread, const Stretch& stretch) {
    Bands result(stretch);
    if (spread == scene::Spread::pad) {
        result.add(stretch.from, stops.front().color);
        result.addPeriod(stops, 0);
        return result.bands;
    }
    const double first = std::floor(stretch.from);
    const double periods = std::ceil(stretch.to) - first;
    if (!(periods * static_cast<double>(stops.size()) <= kMostStops) || stretch.finest >= 1)
        return {{stretch.from, mean(stops)}};
    const ColorStops back = spread == scene::Spread::reflect ? reversed(stops) : stops;
    for (int i = 0; i < static_cast<int>(periods); ++i)
        result.addPeriod(std::fmod(first + i, 2) == 0 ? stops : back, first + i);
    return result.bands;
}

}  // namespace psrender::plan
