#pragma once

#include "psrender/plan/colour/Tint.h"
#include "psrender/plan/gradient/PageGradient.h"
#include "psrender/plan/picture/PageRaster.h"
#include "psrender/scene/DisplayList.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace psrender::plan {

/// What is seen of an area: one tint, or one that changes from place to place. It is a pile of
/// tints, gradients and pictures, of which those that can be said in one are. The lower ones of a
/// pile that grows too high count with their average tint.
class Look {
public:
    explicit Look(const Tint& tint) : layers_{tint} {}
    explicit Look(PageRaster picture)
        : layers_{std::make_shared<const PageRaster>(std::move(picture))} {}
    explicit Look(PageGradient gradient)
        : layers_{std::make_shared<const PageGradient>(std::move(gradient))} {}

    /// Whether nothing shows through anywhere.
    [[nodiscard]] bool isOpaque() const;
    /// Whether nothing is seen anywhere.
    [[nodiscard]] bool isClear() const;
    /// The tint if it is one and the same everywhere, else null.
    [[nodiscard]] const Tint* tint() const;
    /// The gradient if it is a single one, else null.
    [[nodiscard]] const PageGradient* gradient() const;
    /// How many tints, gradients and pictures it consists of.
    [[nodiscard]] std::size_t weight() const { return weight_; }
    /// All gradients in it, the topmost first.
    [[nodiscard]] std::vector<const PageGradient*> gradients() const;
    [[nodiscard]] Sample at(scene::Point onPage) const;
    [[nodiscard]] Tint average() const;

    /// The whole of it with `share` of its opacity.
    [[nodiscard]] Look faded(double share) const;

    /// What is seen where `above` lies on `below`.
    friend Look over(const Look& above, const Look& below);
    friend bool operator==(const Look&, const Look&) = default;

private:
    using GradientLayer = std::shared_ptr<const PageGradient>;
    using PictureLayer = std::shared_ptr<const PageRaster>;
    struct FadedLayer {
        std::shared_ptr<const Look> look;
        double share = 1;

        friend bool operator==(const FadedLayer&, const FadedLayer&) = default;
    };
    using Layer = std::variant<Tint, GradientLayer, PictureLayer, FadedLayer>;

    Look() = default;
    void addBelow(const Layer& layer);
    static std::optional<Layer> merged(const Layer& above, const Layer& below);
    static bool isOpaque(const Layer& layer);
    static bool isClear(const Layer& layer);
    static std::size_t weightOf(const Layer& layer);
    static Sample sampleOf(const Layer& layer, scene::Point onPage);
    static Tint averageOf(const Layer& layer);

    std::vector<Layer> layers_;  ///< the topmost first, at least one
    std::size_t weight_ = 1;
};

Look over(const Look& above, const Look& below);

}  // namespace psrender::plan
