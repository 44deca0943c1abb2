#include "psrender/plan/Range.h"

#include <algorithm>
#include <cmath>

namespace psrender::plan {

namespace {

constexpr double kFarthest = 1e6;         // points
constexpr double kLargestNumber = 1e30;   // well within a float
constexpr double kFloatPrecision = 6e-8;  // of a number's own size
constexpr double kTolerance = 0.001;      // points

double farthest(const scene::Rect& box) {
    return std::max({std::abs(box.x), std::abs(box.y), std::abs(box.x + box.width),
                     std::abs(box.y + box.height)});
}

bool isWritable(const scene::Affine& map) {
    for (const double value : {map.a, map.b, map.c, map.d, map.e, map.f})
        if (!(std::abs(value) < kLargestNumber))
            return false;
    return true;
}

void moveToOrigin(scene::Shape& shape, const scene::Rect& box) {
    const scene::Point centre{box.x + box.width / 2, box.y + box.height / 2};
    shape.outline = std::make_shared<scene::Outline>(
        shape.outline->transformed(scene::Affine::translation(-centre.x, -centre.y)));
    shape.transform = shape.transform * scene::Affine::translation(centre.x, centre.y);
}

}  // namespace

bool isInRange(scene::Shape& shape, Warnings& warnings) {
    const auto box = shape.outline->controlBox();
    if (!box || shape.transform.determinant() == 0)
        return false;
    const auto onPage = shape.outline->transformed(shape.transform).controlBox();
    const bool reachable = farthest(*onPage) <= kFarthest && farthest(*box) < kLargestNumber &&
                           isWritable(shape.transform) && shape.strokeStyle.width < kLargestNumber;
    if (!reachable) {
        warnings.add("a shape beyond a million points from the page is left out");
        return false;
    }
    if (farthest(*box) * kFloatPrecision * shape.transform.meanScale() > kTolerance)
        moveToOrigin(shape, *box);
    return true;
}

}  // namespace psrender::plan
