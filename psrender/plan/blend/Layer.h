#pragma once

#include "psrender/plan/colour/Tint.h"
#include "psrender/plan/gradient/PageGradient.h"
#include "psrender/plan/picture/PictureColors.h"
#include "psrender/scene/DisplayList.h"

#include <cstddef>
#include <memory>
#include <utility>

namespace psrender::plan {

class Appearance;
class Layer;
using LayerPtr = std::shared_ptr<const Layer>;

/// One of the layers that an appearance is made of: a colour for every place of the page.
class Layer {
public:
    Layer() = default;
    Layer(const Layer&) = delete;
    Layer& operator=(const Layer&) = delete;
    virtual ~Layer() = default;

    /// Whether nothing shows through anywhere.
    [[nodiscard]] virtual bool isOpaque() const = 0;
    /// Whether nothing is seen anywhere.
    [[nodiscard]] virtual bool isClear() const { return false; }
    [[nodiscard]] virtual Sample at(scene::Point onPage) const = 0;
    [[nodiscard]] virtual Tint average() const = 0;
    /// What it costs to ask it for a sample.
    [[nodiscard]] virtual std::size_t weight() const { return 1; }
    [[nodiscard]] virtual bool equals(const Layer& other) const { return this == &other; }

    /// The same with a share of its opacity, or null if it cannot say that itself.
    [[nodiscard]] virtual LayerPtr faded(double /*share*/) const { return nullptr; }
    /// This layer on top of `below` in one, or null.
    [[nodiscard]] virtual LayerPtr over(const Layer& /*below*/) const { return nullptr; }
    /// A tint, or another gradient, on top of this layer in one, or null.
    [[nodiscard]] virtual LayerPtr beneath(const Tint& /*above*/) const { return nullptr; }
    [[nodiscard]] virtual LayerPtr beneath(const PageGradient& /*above*/) const { return nullptr; }

    /// What it is made of, if it is of that kind, else null.
    [[nodiscard]] virtual const Tint* tint() const { return nullptr; }
    [[nodiscard]] virtual const PageGradient* gradient() const { return nullptr; }
    [[nodiscard]] virtual const scene::Picture* picture() const { return nullptr; }
    /// A pattern's paint, leading to the page.
    [[nodiscard]] virtual const scene::Paint* pattern() const { return nullptr; }
    /// What a faded group shows, and how much of its opacity it keeps.
    [[nodiscard]] virtual const Appearance* content() const { return nullptr; }
    [[nodiscard]] virtual double share() const { return 1; }
};

LayerPtr tintLayer(const Tint& tint);
LayerPtr gradientLayer(PageGradient gradient);
/// An opaque picture whose transform has an inverse.
LayerPtr pictureLayer(const scene::Picture& picture);
/// A pattern whose paint leads to the page. It has gaps, so what lies beneath counts; from afar it
/// is seen as its average.
LayerPtr patternLayer(scene::Paint paint);

}  // namespace psrender::plan
