#include "psrender/svg/css/LeftOut.h"

#include "psrender/base/Warnings.h"

#include <array>

namespace psrender::svg {

namespace {

struct LeftOut {
    FeatureSet features;
    const char* sentence;
};

constexpr std::array kLeftOutOfShapes{
    LeftOut{feature::kFixedStrokeWidth, "lines are scaled with their shape (vector-effect)"},
};

void warn(const LeftOut& leftOut, FeatureSet present, Warnings& warnings) {
    if ((leftOut.features & present) != 0)
        warnings.add(leftOut.sentence);
}

}  // namespace

void warnOfLeftOut(const ComputedStyle& style, ElementKind kind, Warnings& warnings) {
    if (style.leftOut == 0)
        return;
    if (!isShape(kind))
        return;
    for (const LeftOut& leftOut : kLeftOutOfShapes)
        warn(leftOut, style.leftOut, warnings);
}

}  // namespace psrender::svg
