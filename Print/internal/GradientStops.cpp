#include "Print/internal/GradientStops.h"

#include "Print/PrintException.h"

#include <algorithm>
#include <utility>

namespace Drawing::Print {

namespace {

constexpr int kPositionDecimals = 6;

/// An ink's substitute, as strong as the ink.
void takeSubstitute(Ink& ink) {
    const double paper = ink.space == ColorSpaceType::cmyk ? 0 : 1;
    for (double& component : ink.components)
        component = paper + (component - paper) * ink.tint;
    ink.spot.clear();
    ink.tint = 1;
}

}  // namespace

GradientStops::GradientStops(const GradientBrush& brush, const ColorConverter* converter) {
    double latest = 0;
    for (const StopPoint& stop : brush.getStops()) {
        latest = std::max(latest, std::clamp<double>(stop.position, 0, 1));
        stops_.push_back({latest, inkOf(*stop.color, brush.getOpacity(), converter)});
    }
    if (stops_.empty())
        throw PrintException("a gradient has no stops; give it at least one colour");
    unify();
    cover();
}

void GradientStops::unify() {
    const Ink& first = stops_.front().ink;
    const bool isOneSpace = std::ranges::all_of(stops_, [&](const Stop& stop) {
        return stop.ink.space == first.space && stop.ink.spot == first.spot &&
               (first.spot.empty() || stop.ink.components == first.components);
    });
    if (isOneSpace)
        return;
    const auto toRGB = ColorConverter::plain(ColorSpaceType::rgb);
    for (Stop& stop : stops_) {
        takeSubstitute(stop.ink);
        stop.ink.components = toRGB->convert(stop.ink.space, stop.ink.components);
        stop.ink.space = ColorSpaceType::rgb;
    }
}

/// The outermost colours reach to 0 and 1.
void GradientStops::cover() {
    if (stops_.front().position > 0)
        stops_.insert(stops_.begin(), Stop{0, stops_.front().ink});
    if (stops_.back().position < 1 || stops_.size() == 1)
        stops_.push_back({1, stops_.back().ink});
    // Behind several stops at one place only the first and the last one show.
    for (std::size_t i = 1; i + 1 < stops_.size();) {
        if (stops_[i - 1].position == stops_[i].position &&
            stops_[i].position == stops_[i + 1].position)
            stops_.erase(stops_.begin() + static_cast<std::ptrdiff_t>(i));
        else
            ++i;
    }
    if (stops_.size() > 2 && stops_[0].position == stops_[1].position)
        stops_.erase(stops_.begin());
    if (stops_.size() > 2 && stops_.back().position == stops_[stops_.size() - 2].position)
        stops_.erase(stops_.end() - 2);
}

void GradientStops::reverse() {
    std::ranges::reverse(stops_);
    for (Stop& stop : stops_)
        stop.position = 1 - stop.position;
}

bool GradientStops::hasSteps() const {
    return std::ranges::adjacent_find(stops_, [](const Stop& a, const Stop& b) {
               return a.position == b.position;
           }) != stops_.end();
}

void GradientStops::writeColor(const Ink& ink, TextBuffer& out) {
    if (!ink.spot.empty()) {
        writeComponent(ink.tint, out);
        return;
    }
    for (int i = 0; i < ink.componentCount(); ++i)
        writeComponent(ink.components[static_cast<std::size_t>(i)], out);
}

/// Pieces that join without a step share the colour between them; else each piece has both its
/// colours, and what lies between two stops at one place is left out.
void GradientStops::write(bool withCount, TextBuffer& out) const {
    const bool steps = hasSteps();
    out << '[';
    for (std::size_t i = 0; i < stops_.size(); ++i) {
        const bool begins = i + 1 < stops_.size() && stops_[i].position < stops_[i + 1].position;
        const bool ends = i > 0 && stops_[i - 1].position < stops_[i].position;
        if (!steps || ends)
            writeColor(stops_[i].ink, out);
        if (steps && begins)
            writeColor(stops_[i].ink, out);
    }
    out << ']';
    if (withCount)
        out.number(stops_.front().ink.spot.empty() ? stops_.front().ink.componentCount() : 1);
    out << '[';
    for (std::size_t i = 1; i + 1 < stops_.size(); ++i)
        if (stops_[i].position > stops_[i - 1].position)
            out.number(stops_[i].position, kPositionDecimals);
    out << ']';
}

}  // namespace Drawing::Print
