#include "psrender/job/PicturePage.h"

#include "psrender/image/Upright.h"

namespace psrender {

namespace {

constexpr double kPointsAnInch = 72;
constexpr double kUsualResolution = 96;
constexpr double kHighestResolution = 100'000;

bool isSensible(double resolution) {
    return resolution >= 1 && resolution <= kHighestResolution;
}

}  // namespace

scene::Page pageOf(const Images::UprightImage& image, Warnings& warnings) {
    const bool isKnown =
        isSensible(image.horizontalResolution) && isSensible(image.verticalResolution);
    if (image.isProfileIgnored)
        warnings.add("colour profiles of CMYK images and damaged ones are ignored");
    scene::Page page;
    page.width =
        image.width * kPointsAnInch / (isKnown ? image.horizontalResolution : kUsualResolution);
    page.height =
        image.height * kPointsAnInch / (isKnown ? image.verticalResolution : kUsualResolution);
    page.items.emplace_back(scene::Picture{
        image.image, scene::Affine::scaling(page.width, page.height) * image::uprightOf(image), 1});
    return page;
}

}  // namespace psrender
