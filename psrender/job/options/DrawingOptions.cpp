#include "psrender/job/options/DrawingOptions.h"

#include "psrender/job/InputFile.h"
#include "psrender/job/options/Checks.h"
#include "psrender/job/options/Values.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>

namespace psrender::options {

namespace {

constexpr const char* kImages = "Images";
constexpr std::size_t kHugeDrawing = std::size_t{1} << 32;

std::optional<plan::OpacityWay> opacityNamed(const std::string& name) {
    if (name == "blend")
        return plan::OpacityWay::blend;
    if (name == "white")
        return plan::OpacityWay::white;
    return std::nullopt;
}

}  // namespace

void DrawingOptions::addTo(CLI::App& app) {
    app.add_option("-i,--export-id", chosen_.wishes.element,
                   "only the element of this id, on a page that fits it")
        ->option_text("ID");
    app.add_option("-s,--stylesheet", styleSheet_,
                   "CSS beside that of the drawings, which is stronger")
        ->option_text("FILE");
    app.add_option("-l,--language,--accept-language", languages_,
                   "languages for drawings that have several; default en")
        ->option_text("de,en");
    app.add_option("--opacity", opacity_,
                   "blend (the default): translucent shapes show what is beneath; white: they "
                   "are blended with white paper, which makes smaller files")
        ->option_text("blend|white")
        ->check(check(opacityNamed, "blend or white"));
    addLimitsTo(app);
    addImagesTo(app);
    addPixelsTo(app);
}

void DrawingOptions::addLimitsTo(CLI::App& app) {
    auto* most =
        app.add_option("--max-shapes", chosen_.limits.shapes,
                       "refuse drawings with more shapes or twice as many elements; default " +
                           std::to_string(chosen_.limits.shapes))
            ->option_text("N")
            ->check(CLI::Range(std::size_t{1}, kHugeDrawing));
    app.add_flag_callback(
           "-u,--unlimited", [this] { chosen_.limits.shapes = kHugeDrawing; },
           "refuse no drawing for its size")
        ->excludes(most);
}

void DrawingOptions::addPixelsTo(CLI::App& app) {
    auto* resolution =
        app.add_option("--raster-dpi", chosen_.rasterDotsPerInch,
                       "resolution of what only pixels can show, such as filters; default 300")
            ->option_text("N")
            ->check(CLI::Range(1.0, 2400.0))
            ->group(kImages);
    app.add_flag_callback(
           "--no-raster", [this] { chosen_.rasterDotsPerInch = 0; },
           "leave out what only pixels can show, with a warning")
        ->excludes(resolution)
        ->group(kImages);
}

void DrawingOptions::addImagesTo(CLI::App& app) {
    app.add_option("--max-dpi", chosen_.mostDotsPerInch,
                   "reduce images that have more dots per inch on the page")
        ->option_text("N")
        ->check(CLI::Range(1.0, 100'000.0))
        ->group(kImages);
    app.add_option("--max-pixels", chosen_.mostPixels,
                   "refuse images with more; default " + std::to_string(chosen_.mostPixels))
        ->option_text("N")
        ->check(CLI::Range(std::uint64_t{1}, std::uint64_t{1} << 40))
        ->group(kImages);
    constexpr const char* kUnlisted = "";  // for scripts that ask for what always happens
    app.add_flag("--keep-image-data")->group(kUnlisted);
}

void DrawingOptions::apply(JobRequest& request) const {
    request.wishes.element = chosen_.wishes.element;
    if (!styleSheet_.empty())
        request.wishes.styleSheet = readInput(styleSheet_);
    request.wishes.languages = parseList(languages_);
    request.limits = chosen_.limits;
    request.mostDotsPerInch = chosen_.mostDotsPerInch;
    request.mostPixels = chosen_.mostPixels;
    request.rasterDotsPerInch = chosen_.rasterDotsPerInch;
    if (!opacity_.empty())
        request.opacity = *opacityNamed(opacity_);
}

}  // namespace psrender::options
