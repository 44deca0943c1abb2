#include "Images/internal/ColorProfile.h"

#include "Images/internal/ProfileHandles.h"
#include "Images/internal/ProfileMemory.h"

#include <array>
#include <cstdlib>
#include <limits>
#include <vector>

namespace Images {

using Drawing::ColorSpaceType;

namespace {

struct CurveDeleter {
    void operator()(cmsToneCurve* curve) const { cmsFreeToneCurve(curve); }
};

Profile greyProfile(cmsContext context) {
    constexpr cmsInt32Number kGammaWithLinearFoot = 4;
    constexpr std::array<cmsFloat64Number, 5> steps{2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92,
                                                    0.04045};
    const std::unique_ptr<cmsToneCurve, CurveDeleter> curve(
        cmsBuildParametricToneCurve(context, kGammaWithLinearFoot, steps.data()));
    return Profile(cmsCreateGrayProfileTHR(context, cmsD50_xyY(), curve.get()));
}

/// Whether a sample of all colours comes out within a rounding of where it went in.
bool changesNothing(cmsHTRANSFORM transform, std::size_t components) {
    constexpr int kStep = 15;
    std::vector<std::uint8_t> before;
    for (int r = 0; r < 256; r += kStep)
        for (int g = 0; g < 256; g += kStep)
            for (int b = 0; b < 256; b += kStep)
                for (const int value : {r, g, b})
                    before.push_back(static_cast<std::uint8_t>(value));
    std::vector<std::uint8_t> after(before.size());
    cmsDoTransform(transform, before.data(), after.data(),
                   static_cast<cmsUInt32Number>(before.size() / components));
    for (std::size_t i = 0; i < before.size(); ++i)
        if (std::abs(before[i] - after[i]) > 1)
            return false;
    return true;
}

/// Null for a profile that is damaged or for another space.
Transform transformFrom(cmsContext context, std::span<const std::uint8_t> profile,
                        ColorSpaceType space) {
    const Profile source(cmsOpenProfileFromMemTHR(context, profile.data(),
                                                  static_cast<cmsUInt32Number>(profile.size())));
    const bool isGrey = space == ColorSpaceType::gray;
    if (!source || cmsGetColorSpace(source.get()) != (isGrey ? cmsSigGrayData : cmsSigRgbData))
        return nullptr;
    const Profile target =
        isGrey ? greyProfile(context) : Profile(cmsCreate_sRGBProfileTHR(context));
    const cmsUInt32Number layout = isGrey ? TYPE_GRAY_8 : TYPE_RGB_8;
    return Transform(cmsCreateTransformTHR(context, source.get(), layout, target.get(), layout,
                                           INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOCACHE));
}

}  // namespace

struct ColorProfile::Conversion {
    ProfileMemory memory;
    Transform transform;
    std::size_t components;
};

ColorProfile::ColorProfile() = default;
ColorProfile::~ColorProfile() = default;

bool ColorProfile::load(std::span<const std::uint8_t> profile, ColorSpaceType space) {
    if (space == ColorSpaceType::cmyk || profile.size() > std::numeric_limits<std::int32_t>::max())
        return false;
    ProfileMemory memory;
    Transform transform = transformFrom(memory.context(), profile, space);
    ProfileMemory::requireServed();
    if (!transform)
        return false;
    const std::size_t components = space == ColorSpaceType::gray ? 1 : 3;
    if (!changesNothing(transform.get(), components))
        conversion_ = std::make_unique<Conversion>(
            Conversion{std::move(memory), std::move(transform), components});
    return true;
}

void ColorProfile::apply(std::uint8_t* pixels, std::size_t count) const {
    if (conversion_)
        cmsDoTransform(conversion_->transform.get(), pixels, pixels,
                       static_cast<cmsUInt32Number>(count));
}

}  // namespace Images
