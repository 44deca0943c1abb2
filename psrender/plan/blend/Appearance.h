#pragma once

#include "psrender/plan/blend/Layer.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace psrender::plan {

/// What is seen of an area: one colour, or one that changes from place to place. It is a pile of
/// layers, of which those that can be said in one are. The lower ones of a pile that grows too high
/// count with their average.
class Appearance {
public:
    explicit Appearance(const Tint& tint) : layers_{tintLayer(tint)} {}
    explicit Appearance(LayerPtr layer) : layers_{std::move(layer)} {}

    /// Whether nothing shows through anywhere.
    [[nodiscard]] bool isOpaque() const { return layers_.back()->isOpaque(); }
    /// Whether nothing is seen anywhere.
    [[nodiscard]] bool isClear() const;
    /// The tint if it is one and the same everywhere, else null.
    [[nodiscard]] const Tint* tint() const { return single().tint(); }
    /// The gradient if it is a single one, else null.
    [[nodiscard]] const PageGradient* gradient() const { return single().gradient(); }
    /// How many layers it consists of in all.
    [[nodiscard]] std::size_t weight() const { return weight_; }
    [[nodiscard]] Sample at(scene::Point onPage) const;
    [[nodiscard]] Tint average() const;

    /// An appearance that is a picture or pattern beneath an even tint.
    struct Tinted {
        Tint tint{{}, 0};
        const Layer* original = nullptr;
    };
    [[nodiscard]] std::optional<Tinted> tinted() const;

    /// The whole of it with a share of its opacity.
    [[nodiscard]] Appearance faded(double share) const;

    /// What is seen where `above` lies on `below`.
    friend Appearance over(const Appearance& above, const Appearance& below);
    friend bool operator==(const Appearance& a, const Appearance& b);

private:
    [[nodiscard]] const Layer& single() const;
    void addBelow(const LayerPtr& layer);

    std::vector<LayerPtr> layers_;  ///< the topmost first, at least one
    std::size_t weight_ = 1;
};

Appearance over(const Appearance& above, const Appearance& below);

}  // namespace psrender::plan
