#include "psrender/job/ProfileConverter.h"

#include "Images/internal/ProfileHandles.h"

#include <algorithm>
#include <stdexcept>

namespace psrender {

using Drawing::ColorSpaceType;
using Drawing::Print::ColorConverter;
using Drawing::Print::Components;
using Images::Profile;
using Images::Transform;

namespace {

struct Device {
    ColorSpaceType space;
    cmsUInt32Number layout;
    double most;  ///< what the colour library calls full
};

Device deviceOf(const Profile& profile, const std::string& file) {
    if (profile)
        switch (cmsGetColorSpace(profile.get())) {
            case cmsSigGrayData:
                return {ColorSpaceType::gray, TYPE_GRAY_DBL, 1};
            case cmsSigRgbData:
                return {ColorSpaceType::rgb, TYPE_RGB_DBL, 1};
            case cmsSigCmykData:
                return {ColorSpaceType::cmyk, TYPE_CMYK_DBL, 100};
            default:
                break;
        }
    throw std::runtime_error(file +
                             ": is no colour profile of a grey, RGB or CMYK device; give "
                             "--icc the .icc file of the printer or paper");
}

class ProfileConverter : public ColorConverter {
public:
    ProfileConverter(const Device& device, const Profile& profile)
        : ColorConverter(device.space), most_(device.most), toRgb_(plain(ColorSpaceType::rgb)) {
        const Profile source(cmsCreate_sRGBProfile());
        transform_.reset(cmsCreateTransform(source.get(), TYPE_RGB_DBL, profile.get(),
                                            device.layout, INTENT_RELATIVE_COLORIMETRIC,
                                            cmsFLAGS_NOCACHE | cmsFLAGS_BLACKPOINTCOMPENSATION));
        if (!transform_)
            throw std::runtime_error(
                "the colour profile of --icc cannot be printed with; "
                "choose one of an output device");
    }

    [[nodiscard]] Components convert(ColorSpaceType from, const Components& color) const override {
        if (from == getTarget() && from == ColorSpaceType::cmyk)
            return color;
        Components rgb = from == ColorSpaceType::rgb ? color : toRgb_->convert(from, color);
        Components result{};
        cmsDoTransform(transform_.get(), rgb.data(), result.data(), 1);
        for (double& component : result)
            component = std::clamp(component / most_, 0.0, 1.0);
        return result;
    }

private:
    double most_;
    Core::SmartPtr<ColorConverter> toRgb_;
    Transform transform_;
};

}  // namespace

Core::SmartPtr<ColorConverter> converterTo(const std::string& profileFile) {
    const Profile profile(cmsOpenProfileFromFile(profileFile.c_str(), "r"));
    const Device device = deviceOf(profile, profileFile);
    return Core::makeObject<ProfileConverter>(device, profile);
}

}  // namespace psrender
