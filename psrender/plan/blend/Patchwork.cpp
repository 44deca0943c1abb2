#include "psrender/plan/blend/Patchwork.h"

#include "psrender/plan/blend/LookFit.h"

#include <optional>
#include <utility>

namespace psrender::plan {

using scene::Rect;

namespace {

constexpr double kTolerance = 5;  // levels of 255
constexpr double kOverlap = 0.5;  // points
constexpr double kSmallest = 3;   // points: not worth to be halved
constexpr int kMostHalvings = 9;

class Patchwork {
public:
    Patchwork(const Look& look, BlendBudget& budget) : look_(look), budget_(budget) {}

    void cover(const Polygons& area, int halvings) {
        const auto box = boxOf(area);
        if (!box)
            return;
        if (!BlendBudget::spend(budget_.fits, look_.weight())) {
            patches.push_back({area, {scene::Paint::Kind::solid, look_.average().color}});
            return;
        }
        LookFit fit = fitTo(look_, *box, &area);
        const bool isWide = fit.isWorstAcross;
        const bool mayHalve = halvings < kMostHalvings &&
                              (isWide ? box->width : box->height) > kSmallest &&
                              !budget_.isSpent() && BlendBudget::spend(budget_.gradients, 1);
        const bool isDone = fit.error <= kTolerance || !mayHalve;
        const auto first = isDone ? std::nullopt : cut(area, half(*box, isWide, false));
        const auto second = first ? cut(area, half(*box, isWide, true)) : std::nullopt;
        if (!second) {
            patches.push_back({area, std::move(fit.paint)});
            return;
        }
        cover(*first, halvings + 1);
        cover(*second, halvings + 1);
    }

    std::vector<Patch> patches;

private:
    /// The first half reaches under the second one.
    static Rect half(const Rect& box, bool isWide, bool isSecond) {
        Rect part = box;
        double& begin = isWide ? part.x : part.y;
        double& length = isWide ? part.width : part.height;
        length /= 2;
        if (isSecond)
            begin += length;
        else
            length += kOverlap;
        return part;
    }
    std::optional<Polygons> cut(const Polygons& area, const Rect& box) {
        std::size_t work = 0;
        auto part = combine(ClipperLib::ctIntersection, area, ClipperLib::pftNonZero,
                            toPolygons(box), &work);
        BlendBudget::spend(budget_.work, work);
        return part;
    }

    const Look& look_;
    BlendBudget& budget_;
};

}  // namespace

std::vector<Patch> patchesOf(const Look& look, const Polygons& area, BlendBudget& budget) {
    Patchwork patchwork(look, budget);
    patchwork.cover(area, 0);
    return std::move(patchwork.patches);
}

}  // namespace psrender::plan
