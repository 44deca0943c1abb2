#include "psrender/plan/blend/Look.h"

#include <algorithm>
#include <utility>

namespace psrender::plan {

using scene::ColorStop;
using scene::Point;

namespace {

constexpr std::size_t kMostWeight = 64;
constexpr std::size_t kMostStops = 500;  // of two gradients that are said in one

ColorStops stopOf(const Tint& tint) {
    return {{0, tint.color, tint.alpha}};
}

ColorStops fadedStops(ColorStops stops, double share) {
    for (ColorStop& stop : stops)
        stop.opacity *= share;
    return stops;
}

}  // namespace

bool Look::isOpaque(const Layer& layer) {
    if (const auto* tint = std::get_if<Tint>(&layer))
        return tint->alpha >= 1;
    if (const auto* gradient = std::get_if<GradientLayer>(&layer))
        return std::ranges::all_of((*gradient)->stops(),
                                   [](const ColorStop& stop) { return stop.opacity >= 1; });
    return std::holds_alternative<PictureLayer>(layer);
}

bool Look::isClear(const Layer& layer) {
    if (const auto* tint = std::get_if<Tint>(&layer))
        return !(tint->alpha > 0);
    if (const auto* gradient = std::get_if<GradientLayer>(&layer))
        return std::ranges::none_of((*gradient)->stops(),
                                    [](const ColorStop& stop) { return stop.opacity > 0; });
    return false;
}

bool Look::isOpaque() const {
    return isOpaque(layers_.back());
}

bool Look::isClear() const {
    return std::ranges::all_of(layers_, [](const Layer& layer) { return isClear(layer); });
}

const Tint* Look::tint() const {
    return layers_.size() == 1 ? std::get_if<Tint>(layers_.data()) : nullptr;
}

const PageGradient* Look::gradient() const {
    const auto* gradient =
        layers_.size() == 1 ? std::get_if<GradientLayer>(layers_.data()) : nullptr;
    return gradient != nullptr ? gradient->get() : nullptr;
}

std::vector<const PageGradient*> Look::gradients() const {
    std::vector<const PageGradient*> result;
    for (const Layer& layer : layers_)
        if (const auto* gradient = std::get_if<GradientLayer>(&layer)) {
            result.push_back(gradient->get());
        } else if (const auto* faded = std::get_if<FadedLayer>(&layer)) {
            const auto inner = faded->look->gradients();
            result.insert(result.end(), inner.begin(), inner.end());
        }
    return result;
}

Sample Look::sampleOf(const Layer& layer, Point onPage) {
    if (const auto* tint = std::get_if<Tint>(&layer))
        return plan::sampleOf(tint->color, tint->alpha);
    if (const auto* gradient = std::get_if<GradientLayer>(&layer))
        return (*gradient)->at(onPage);
    if (const auto* picture = std::get_if<PictureLayer>(&layer))
        return (*picture)->at(onPage);
    const auto& faded = std::get<FadedLayer>(layer);
    Sample sample = faded.look->at(onPage);
    for (double& part : sample)
        part *= faded.share;
    return sample;
}

std::size_t Look::weightOf(const Layer& layer) {
    const auto* faded = std::get_if<FadedLayer>(&layer);
    return faded != nullptr ? faded->look->weight() : 1;
}

Tint Look::averageOf(const Layer& layer) {
    if (const auto* tint = std::get_if<Tint>(&layer))
        return *tint;
    if (const auto* gradient = std::get_if<GradientLayer>(&layer)) {
        const ColorStop middle = stopAt((*gradient)->stops(), 0.5);
        return {middle.color, middle.opacity};
    }
    if (const auto* picture = std::get_if<PictureLayer>(&layer))
        return (*picture)->average();
    const auto& faded = std::get<FadedLayer>(layer);
    const Tint whole = faded.look->average();
    return {whole.color, whole.alpha * faded.share};
}

Tint Look::average() const {
    Tint seen = averageOf(layers_[0]);
    for (std::size_t i = 1; i < layers_.size(); ++i)
        seen = over(seen, averageOf(layers_[i]));
    return seen;
}

Sample Look::at(Point onPage) const {
    Sample seen{};
    for (const Layer& layer : layers_) {
        const Sample below = sampleOf(layer, onPage);
        const double shows = 1 - seen[3];
        for (std::size_t i = 0; i < seen.size(); ++i)
            seen[i] += shows * below[i];
    }
    return seen;
}

Look Look::faded(double share) const {
    if (share >= 1)
        return *this;
    if (const Tint* one = tint())
        return Look(Tint{one->color, one->alpha * share});
    Look result;
    if (const PageGradient* one = gradient())
        result.layers_ = {one->with(fadedStops(one->stops(), share))};
    else
        result.layers_ = {FadedLayer{std::make_shared<const Look>(*this), share}};
    result.weight_ = weight_;
    return result;
}

/// Both in one layer, if one can say it.
std::optional<Look::Layer> Look::merged(const Layer& above, const Layer& below) {
    const auto* upperTint = std::get_if<Tint>(&above);
    const auto* lowerTint = std::get_if<Tint>(&below);
    if (upperTint != nullptr && lowerTint != nullptr)
        return over(*upperTint, *lowerTint);
    const auto* upper = std::get_if<GradientLayer>(&above);
    const auto* lower = std::get_if<GradientLayer>(&below);
    if (upper != nullptr && lowerTint != nullptr)
        return (*upper)->with(over((*upper)->stops(), stopOf(*lowerTint)));
    if (lower != nullptr && upperTint != nullptr)
        return (*lower)->with(over(stopOf(*upperTint), (*lower)->stops()));
    if (upper != nullptr && lower != nullptr && (*upper)->isAlongside(**lower) &&
        (*upper)->stops().size() + (*lower)->stops().size() <= kMostStops)
        return (*upper)->with(over((*upper)->stops(), (*lower)->stops()));
    return std::nullopt;
}

void Look::addBelow(const Layer& layer) {
    if (isOpaque() || isClear(layer))
        return;
    if (layers_.size() == 1 && isClear(layers_.back())) {
        layers_ = {layer};
        weight_ = weightOf(layer);
        return;
    }
    const auto both = merged(layers_.back(), layer);
    if (both) {
        layers_.back() = *both;
        return;
    }
    if (layers_.size() > 1 && weight_ + weightOf(layer) > kMostWeight &&
        !std::holds_alternative<Tint>(layer)) {
        addBelow(averageOf(layer));
        return;
    }
    layers_.push_back(layer);
    weight_ += weightOf(layer);
}

Look over(const Look& above, const Look& below) {
    Look result = above;
    for (const Look::Layer& layer : below.layers_)
        result.addBelow(layer);
    return result;
}

}  // namespace psrender::plan
