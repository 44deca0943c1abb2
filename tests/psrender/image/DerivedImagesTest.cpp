#include "psrender/image/DerivedImages.h"

#include "Drawing/RasterImage.h"
#include "psrender/plan/Planner.h"

#include <gmock/gmock.h>

namespace psrender::image {

namespace {

using Drawing::ColorSpaceType;
using testing::ElementsAre;

using Image = Core::SmartPtr<Drawing::Image>;

Image raster(int width, int height, ColorSpaceType space, std::vector<std::uint8_t> pixels,
             std::vector<std::uint8_t> alpha = {}) {
    return Core::makeObject<Drawing::RasterImage>(Drawing::PixelSize{width, height}, space,
                                                  Core::ByteArray(std::move(pixels)),
                                                  Core::ByteArray(std::move(alpha)));
}

std::vector<int> pixelsOf(const Image& image) {
    const Core::ByteArray pixels = image->getPixelBytes(0);
    return {pixels.begin(), pixels.end()};
}

std::vector<int> alphaOf(const Image& image) {
    const Core::ByteArray alpha = image->getAlphaBytes(0);
    return {alpha.begin(), alpha.end()};
}

TEST(DerivedImages, AreCroppedAgainAndAgain) {
    const Image image = raster(4, 3, ColorSpaceType::gray, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11},
                               {20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31});
    const Image part = cropped(image, {1, 1, 3, 2});
    EXPECT_THAT(pixelsOf(part), ElementsAre(5, 6, 7, 9, 10, 11));
    EXPECT_THAT(alphaOf(part), ElementsAre(25, 26, 27, 29, 30, 31));
    EXPECT_THAT(pixelsOf(cropped(part, {1, 1, 2, 1})), ElementsAre(10, 11));
    EXPECT_THAT(pixelsOf(cropped(image, {0, 1, 4, 1})), ElementsAre(4, 5, 6, 7));
    EXPECT_EQ(image, cropped(image, {0, 0, 4, 3}));
}

TEST(DerivedImages, AreReducedToAverages) {
    EXPECT_THAT(pixelsOf(reduced(
                    raster(4, 2, ColorSpaceType::gray, {0, 10, 20, 30, 40, 50, 60, 70}), {2, 1})),
                ElementsAre(25, 45));
    EXPECT_THAT(pixelsOf(reduced(raster(3, 1, ColorSpaceType::gray, {0, 90, 240}), {2, 1})),
                ElementsAre(30, 190))
        << "the one in the middle belongs to both";
    const Image half =
        reduced(raster(2, 1, ColorSpaceType::rgb, {200, 100, 0, 9, 9, 9}, {255, 0}), {1, 1});
    EXPECT_THAT(pixelsOf(half), ElementsAre(200, 100, 0)) << "what is clear has no colour";
    EXPECT_THAT(alphaOf(half), ElementsAre(128));
}

TEST(DerivedImages, LieOverTheirGround) {
    const scene::Color white{255, 255, 255};
    const Image grey = raster(3, 1, ColorSpaceType::gray, {0, 0, 100}, {255, 128, 0});
    EXPECT_THAT(pixelsOf(flattened(grey, 1, white)), ElementsAre(0, 127, 255));
    EXPECT_THAT(pixelsOf(flattened(grey, 0.2, white)), ElementsAre(204, 229, 255));
    EXPECT_THAT(pixelsOf(flattened(grey, 1, {10, 10, 10})), ElementsAre(0, 5, 10));
    EXPECT_THAT(pixelsOf(flattened(grey, 1, {255, 10, 0})),
                ElementsAre(0, 0, 0, 127, 5, 0, 255, 10, 0));
    const Image ink = raster(1, 1, ColorSpaceType::cmyk, {255, 100, 0, 40});
    EXPECT_THAT(pixelsOf(flattened(ink, 0.2, white)), ElementsAre(51, 20, 0, 8));
    EXPECT_THAT(pixelsOf(flattened(ink, 0.2, {255, 255, 0})), ElementsAre(51, 20, 204, 8));
    EXPECT_EQ(ink, flattened(ink, 1, white));
    EXPECT_FALSE(flattened(grey, 1, white)->hasAlpha());
}

/// An image of any size that no memory is needed for.
class HugeImage : public Images::RowImage {
public:
    HugeImage(int width, int height, ColorSpaceType space)
        : Images::RowImage(u"huge", {width, height}, space, false) {}
    void readRows(std::int32_t, std::int32_t, std::uint8_t*, std::uint8_t*) const override {}
};

std::vector<scene::Picture> planned(const Image& image, double mostDotsPerInch = 0) {
    scene::Page page;
    page.items.emplace_back(scene::Picture{image, {200, 0, 0, 100, 7, 8}, 1});
    Warnings warnings;
    std::vector<scene::Picture> pictures;
    for (const auto& item : plan::Planner({mostDotsPerInch}).plan(page, warnings).items)
        pictures.push_back(std::get<scene::Picture>(item));
    return pictures;
}

TEST(Pictures, AreReducedToTheResolutionAskedFor) {
    const auto sizeAt = [](double most) {
        const Image image = Core::makeObject<HugeImage>(2000, 500, ColorSpaceType::gray);
        return planned(image, most).at(0).image->getPixelSize();
    };
    EXPECT_EQ((Drawing::PixelSize{2000, 500}), sizeAt(0));
    EXPECT_EQ((Drawing::PixelSize{1000, 500}), sizeAt(360));
    EXPECT_EQ((Drawing::PixelSize{200, 100}), sizeAt(72));
}

}  // namespace

}  // namespace psrender::image
