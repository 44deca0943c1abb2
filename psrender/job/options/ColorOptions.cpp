#include "psrender/job/options/ColorOptions.h"

#include "psrender/job/ProfileConverter.h"
#include "psrender/job/options/Checks.h"

#include <CLI/CLI.hpp>

#include <optional>

namespace psrender::options {

namespace {

std::optional<Drawing::ColorSpaceType> colorsNamed(const std::string& name) {
    if (name == "rgb")
        return Drawing::ColorSpaceType::rgb;
    if (name == "gray")
        return Drawing::ColorSpaceType::gray;
    if (name == "cmyk")
        return Drawing::ColorSpaceType::cmyk;
    return std::nullopt;
}

}  // namespace

void ColorOptions::addTo(CLI::App& app) {
    app.add_option("--embed-fonts", embedding_,
                   "all: the 14 standard fonts, too, for archives; subset (the default): the "
                   "others only")
        ->option_text("all|subset")
        ->check(CLI::IsMember({"all", "subset"}));
    auto* colors = app.add_option("--colors", colors_, "bring all colours to one space")
                       ->option_text("rgb|gray|cmyk")
                       ->check(check(colorsNamed, "rgb, gray or cmyk"));
    app.add_option("--icc", icc_, "bring all colours to the device of a colour profile")
        ->option_text("FILE")
        ->excludes(colors);
}

void ColorOptions::apply(JobRequest& request) const {
    if (!icc_.empty())
        request.settings.colors = converterTo(icc_);
    else if (!colors_.empty())
        request.settings.colors = Drawing::Print::ColorConverter::plain(*colorsNamed(colors_));
    request.settings.embedStandardFonts = embedding_ == "all";
}

}  // namespace psrender::options
