#include "psrender/svg/css/LeftOut.h"

#include "psrender/base/Warnings.h"

#include <array>

namespace psrender::svg {

namespace {

struct LeftOut {
    FeatureSet features;
    const char* sentence;
};

constexpr std::array kLeftOutAnywhere{
    LeftOut{feature::mask, "masks are left out (mask)"},
    LeftOut{feature::filter, "filters are left out (filter)"},
    LeftOut{feature::blendMode, "blend modes are left out (mix-blend-mode)"},
};
constexpr std::array kLeftOutOfShapes{
    LeftOut{feature::paintOrder, "fill is drawn before stroke whatever is asked (paint-order)"},
    LeftOut{feature::fixedStrokeWidth, "lines are scaled with their shape (vector-effect)"},
};

void warn(const LeftOut& leftOut, FeatureSet present, Warnings& warnings) {
    if ((leftOut.features & present) != 0)
        warnings.add(leftOut.sentence);
}

}  // namespace

void warnOfLeftOut(const ComputedStyle& style, ElementKind kind, Warnings& warnings) {
    if (style.leftOut == 0)
        return;
    for (const LeftOut& leftOut : kLeftOutAnywhere)
        warn(leftOut, style.leftOut, warnings);
    if (!isShape(kind))
        return;
    for (const LeftOut& leftOut : kLeftOutOfShapes)
        warn(leftOut, style.leftOut, warnings);
}

}  // namespace psrender::svg
