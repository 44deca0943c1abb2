#include "psrender/job/options/PageOptions.h"

#include "psrender/job/options/Checks.h"
#include "psrender/job/options/Values.h"
#include "psrender/svg/values/Color.h"

#include <CLI/CLI.hpp>

#include <optional>

namespace psrender::options {

namespace {

constexpr double kFitMargin = 28.35;  // points: 10 mm
constexpr const char* kGroup = "Page";

std::optional<scene::Color> parseBackground(const std::string& text) {
    const auto color = svg::parseColor(text);
    return color && color->alpha == 1 ? std::optional(color->color) : std::nullopt;
}

/// Nothing for what was not given.
std::optional<double> lengthOf(const std::string& text, double dotsPerInch) {
    return text.empty() ? std::nullopt : parsePixels(text, dotsPerInch);
}

}  // namespace

void PageOptions::addTo(CLI::App& app) {
    CLI::Option* paper = addPaperTo(app);
    addSizeTo(app);
    addPlaceTo(app, paper);
}

CLI::Option* PageOptions::addPaperTo(CLI::App& app) {
    auto* paper =
        app.add_option("--paper", paper_,
                       "A0 to A10, B0 to B10, Letter, Legal, Tabloid, Ledger, Executive, "
                       "Statement, Folio, ANSI-C to -E, Arch-A to -E, -landscape behind it turns "
                       "it, or WxH with mm, cm, in or pt; without it each page is as large as "
                       "its drawing")
            ->option_text("SIZE")
            ->check(check(parsePaper, "a paper size such as A4 or 210x297mm"))
            ->group(kGroup);
    app.add_flag("--fit", frame_.fit,
                 "scale each drawing to the paper less the margin, else it is centred in its "
                 "own size")
        ->needs(paper)
        ->group(kGroup);
    app.add_flag("--landscape", frame_.landscape, "turn the paper")->needs(paper)->group(kGroup);
    app.add_option("--margin", margin_,
                   "on all sides, or TOP,RIGHT,BOTTOM,LEFT, with units; default 10mm with "
                   "--fit, else 0; without --paper the page grows by it")
        ->option_text("LENGTH")
        ->check(check(parseMargins, "a length such as 10mm or 0.5in, or four of them"))
        ->group(kGroup);
    app.add_option("-b,--background,--background-color", background_,
                   "an opaque colour as in CSS, under the drawing")
        ->option_text("COLOR")
        ->check(check(parseBackground, "an opaque colour such as white or #ffcc00"))
        ->group(kGroup);
    return paper;
}

void PageOptions::addSizeTo(CLI::App& app) {
    const auto side = check(isSide, "a length such as 640, 640px, 10cm or 4in");
    const auto add = [&](const char* name, auto& value, const char* words) {
        return app.add_option(name, value, words)->group(kGroup);
    };
    add("-w,--width", width_, "of the drawing; in proportion if given alone")
        ->option_text("LENGTH")
        ->check(side);
    add("-h,--height", height_, "of the drawing; in proportion if given alone")
        ->option_text("LENGTH")
        ->check(side);
    app.add_flag("-a,--keep-aspect-ratio", frame_.keepProportions,
                 "with both --width and --height, as large as fits in them")
        ->group(kGroup);
    const CLI::Range scales(1e-4, 1e4);
    auto* zoom = add("-z,--scale,--zoom", zoom_, "of the drawing; default 1");
    zoom->option_text("N")->check(scales);
    add("-x,--x-zoom", frame_.scaleX, "of the drawing, horizontally")
        ->option_text("N")
        ->check(scales)
        ->excludes(zoom);
    add("-y,--y-zoom", frame_.scaleY, "of the drawing, vertically")
        ->option_text("N")
        ->check(scales)
        ->excludes(zoom);
    const CLI::Range resolutions(1.0, 100'000.0);
    add("-d,--dpi,--dpi-x", dotsPerInch_, "pixels an inch of lengths without unit; default 96")
        ->option_text("N")
        ->check(resolutions);
    add("-p,--dpi-y", verticalDotsPerInch_, "the same of vertical lengths; default as --dpi")
        ->option_text("N")
        ->check(resolutions);
}

void PageOptions::addPlaceTo(CLI::App& app, CLI::Option* paper) {
    const auto add = [&](const char* name, std::string& value, const char* words) {
        return app.add_option(name, value, words)->option_text("LENGTH")->group(kGroup);
    };
    const auto side = check(isSide, "a length such as 640, 640px, 10cm or 4in");
    add("--page-width", pageWidth_, "of the page, with the drawing at its top left")
        ->check(side)
        ->excludes(paper);
    add("--page-height", pageHeight_, "of the page, with the drawing at its top left")
        ->check(side)
        ->excludes(paper);
    const auto distance = check([](const std::string& text) { return parsePixels(text, 96); },
                                "a length such as 20, 20px or 5mm");
    add("--left", left_, "from the edge of the page to the drawing")->check(distance);
    add("--top", top_, "from the edge of the page to the drawing")->check(distance);
}

void PageOptions::apply(JobRequest& request) const {
    const double vertical = verticalDotsPerInch_ > 0 ? verticalDotsPerInch_ : dotsPerInch_;
    PageFrame& frame = request.frame;
    frame = frame_;
    frame.scaleX *= zoom_;
    frame.scaleY *= zoom_;
    if (!paper_.empty())
        frame.paper = parsePaper(paper_);
    if (!margin_.empty())
        frame.margins = *parseMargins(margin_);
    else if (frame.fit)
        frame.margins = {kFitMargin, kFitMargin, kFitMargin, kFitMargin};
    frame.width = lengthOf(width_, dotsPerInch_);
    frame.height = lengthOf(height_, vertical);
    frame.pageWidth = lengthOf(pageWidth_, dotsPerInch_);
    frame.pageHeight = lengthOf(pageHeight_, vertical);
    frame.left = lengthOf(left_, dotsPerInch_);
    frame.top = lengthOf(top_, vertical);
    if (!background_.empty())
        frame.background = parseBackground(background_);
}

}  // namespace psrender::options
