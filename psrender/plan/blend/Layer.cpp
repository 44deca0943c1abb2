#include "psrender/plan/blend/Layer.h"

#include <algorithm>
#include <array>

namespace psrender::plan {

using scene::ColorStop;
using scene::Point;

namespace {

constexpr std::size_t kMostStops = 500;  // of two gradients that are said in one

ColorStops stopOf(const Tint& tint) {
    return {{0, tint.color, tint.alpha}};
}

class TintLayer : public Layer {
public:
    explicit TintLayer(const Tint& tint) : tint_(tint) {}

    [[nodiscard]] bool isOpaque() const override { return tint_.alpha >= 1; }
    [[nodiscard]] bool isClear() const override { return !(tint_.alpha > 0); }
    [[nodiscard]] Sample at(Point /*onPage*/) const override {
        return sampleOf(tint_.color, tint_.alpha);
    }
    [[nodiscard]] Tint average() const override { return tint_; }
    [[nodiscard]] bool equals(const Layer& other) const override {
        return other.tint() != nullptr && *other.tint() == tint_;
    }
    [[nodiscard]] LayerPtr faded(double share) const override {
        return tintLayer({tint_.color, tint_.alpha * share});
    }
    [[nodiscard]] LayerPtr over(const Layer& below) const override { return below.beneath(tint_); }
    [[nodiscard]] LayerPtr beneath(const Tint& above) const override {
        return tintLayer(plan::over(above, tint_));
    }
    [[nodiscard]] LayerPtr beneath(const PageGradient& above) const override {
        return gradientLayer(*above.with(plan::over(above.stops(), stopOf(tint_))));
    }
    [[nodiscard]] const Tint* tint() const override { return &tint_; }

private:
    Tint tint_;
};

class GradientLayer : public Layer {
public:
    explicit GradientLayer(PageGradient gradient) : gradient_(std::move(gradient)) {}

    [[nodiscard]] bool isOpaque() const override { return plan::isOpaque(gradient_.stops()); }
    [[nodiscard]] bool isClear() const override {
        return std::ranges::none_of(gradient_.stops(),
                                    [](const ColorStop& stop) { return stop.opacity > 0; });
    }
    [[nodiscard]] Sample at(Point onPage) const override { return gradient_.at(onPage); }
    [[nodiscard]] Tint average() const override {
        const ColorStop average = averageOf(gradient_.stops());
        return {average.color, average.opacity};
    }
    [[nodiscard]] LayerPtr faded(double share) const override {
        ColorStops stops = gradient_.stops();
        for (ColorStop& stop : stops)
            stop.opacity *= share;
        return gradientLayer(*gradient_.with(std::move(stops)));
    }
    [[nodiscard]] LayerPtr over(const Layer& below) const override {
        return below.beneath(gradient_);
    }
    [[nodiscard]] LayerPtr beneath(const Tint& above) const override {
        return gradientLayer(*gradient_.with(plan::over(stopOf(above), gradient_.stops())));
    }
    [[nodiscard]] LayerPtr beneath(const PageGradient& above) const override {
        if (!above.isAlongside(gradient_) ||
            above.stops().size() + gradient_.stops().size() > kMostStops)
            return nullptr;
        return gradientLayer(*above.with(plan::over(above.stops(), gradient_.stops())));
    }
    [[nodiscard]] const PageGradient* gradient() const override { return &gradient_; }

private:
    PageGradient gradient_;
};

class PictureLayer : public Layer {
public:
    explicit PictureLayer(const scene::Picture& picture) : colors_(picture) {}

    [[nodiscard]] bool isOpaque() const override { return true; }
    [[nodiscard]] Sample at(Point onPage) const override { return colors_.at(onPage); }
    [[nodiscard]] Tint average() const override { return colors_.average(); }
    [[nodiscard]] const scene::Picture* picture() const override { return &colors_.picture(); }

private:
    PictureColors colors_;
};

/// The average colour of the first shapes of a pattern.
Tint averageOf(const scene::Pattern& pattern) {
    constexpr std::size_t kMost = 1000;
    const auto& items = pattern.content->items;
    std::array<double, 3> sum{};
    double count = 0;
    for (std::size_t i = 0; i < std::min(kMost, items.size()); ++i) {
        const auto* shape = std::get_if<scene::Shape>(&items[i]);
        const scene::Color* color = shape != nullptr ? paintOf(*shape).color() : nullptr;
        if (color == nullptr)
            continue;
        sum[0] += color->red;
        sum[1] += color->green;
        sum[2] += color->blue;
        ++count;
    }
    if (count == 0)
        return {};
    return {scene::Color::rounded(sum[0] / count, sum[1] / count, sum[2] / count), 1};
}

class PatternLayer : public Layer {
public:
    explicit PatternLayer(scene::Paint paint)
        : paint_(std::move(paint)), average_(averageOf(*paint_.pattern())) {}

    [[nodiscard]] bool isOpaque() const override { return true; }
    [[nodiscard]] Sample at(Point /*onPage*/) const override { return sampleOf(average_.color, 1); }
    [[nodiscard]] Tint average() const override { return average_; }
    [[nodiscard]] const scene::Paint* pattern() const override { return &paint_; }

private:
    scene::Paint paint_;
    Tint average_;
};

}  // namespace

LayerPtr tintLayer(const Tint& tint) {
    return std::make_shared<const TintLayer>(tint);
}

LayerPtr gradientLayer(PageGradient gradient) {
    return std::make_shared<const GradientLayer>(std::move(gradient));
}

LayerPtr pictureLayer(const scene::Picture& picture) {
    return std::make_shared<const PictureLayer>(picture);
}

LayerPtr patternLayer(scene::Paint paint) {
    return std::make_shared<const PatternLayer>(std::move(paint));
}

}  // namespace psrender::plan
