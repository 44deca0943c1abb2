#include "psrender/plan/Planner.h"

#include "psrender/plan/PagePlanner.h"
#include "psrender/plan/blend/Translucency.h"
#include "psrender/plan/effect/EffectSearch.h"
#include "psrender/plan/effect/Flattening.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace psrender::plan {

namespace {

using Items = std::vector<scene::Item>;

/// Small pages may be as large as this, so that they stay vectors.
constexpr double kLeastBytes = 128 * 1024;
constexpr double kGrowth = 4;

/// Whether blending has made a page much larger than it was, and larger than a picture of it.
bool isTooLarge(const Items& planned, double bytesBefore, const scene::Rect& paper) {
    const double bytes = estimatedBytes(planned);
    return bytes > kGrowth * bytesBefore &&
           bytes > std::max(kLeastBytes, bytesOfPicture(paper, kUsualDotsPerInch));
}

/// Each picture has to be blended with those beneath it, so many of them, or many large ones, take
/// too long one by one.
bool isTooMuch(const EffectLoad& load, double dotsPerInch) {
    constexpr std::size_t kMostPictures = 200;
    constexpr double kMostEffort = 2e9;  // pixels looked at
    const double pixelsAPoint = dotsPerInch / 72;
    const double effort =
        static_cast<double>(load.pictures) * load.filteredArea * pixelsAPoint * pixelsAPoint;
    return load.pictures > kMostPictures || effort > kMostEffort;
}

Items planFlattened(const PlanOptions& options, const scene::ItemList& page,
                    const scene::Rect& paper, PixelMaker& maker, Warnings& warnings) {
    try {
        scene::ItemList flat = flattened(page, maker);
        warnings.add("translucent shapes become a picture where there are too many");
        return PagePlanner(options, warnings).plan(std::move(flat), paper);
    } catch (const std::runtime_error&) {
        return PagePlanner(options, warnings).plan(page, paper);
    }
}

/// Plans a page with translucency once or, where vectors do not do, again. There is no need to
/// cut polygons for long where pixels can stand in.
Items planBlended(const PlanOptions& options, const scene::ItemList& page, const scene::Rect& paper,
                  Warnings& warnings) {
    PixelMaker maker(options.rasterDotsPerInch, paper, warnings);
    if (isTooMuch(loadOf(page.items), options.rasterDotsPerInch) && maker.isThere())
        return planFlattened(options, page, paper, maker, warnings);
    Warnings ofVectors;
    PagePlanner vectors(options, ofVectors, false, Budget(Budget::kPage / 4));
    Items planned = vectors.plan(page, paper);
    const bool isCutTooMuch =
        vectors.budget().isSpent() || isTooLarge(planned, estimatedBytes(page.items), paper);
    if (!isCutTooMuch && !vectors.budget().hasAverages()) {
        warnings.add(ofVectors);
        return planned;
    }
    if (!maker.isThere())
        return PagePlanner(options, warnings).plan(page, paper);
    if (!isCutTooMuch)
        return PagePlanner(options, warnings, true).plan(page, paper);
    return planFlattened(options, page, paper, maker, warnings);
}

/// Small drawings are made to be enlarged, so pictures are as fine as if the page was larger.
PlanOptions optionsFor(const scene::Page& page, PlanOptions options) {
    constexpr double kFewestPixelsAcross = 512;
    constexpr double kPointsAnInch = 72;
    const double side = std::max({page.width, page.height, 1.0});
    if (options.rasterDotsPerInch == kUsualDotsPerInch)
        options.rasterDotsPerInch =
            std::max(kUsualDotsPerInch, kFewestPixelsAcross / side * kPointsAnInch);
    return options;
}

}  // namespace

scene::Page Planner::plan(scene::Page page, Warnings& warnings) const {
    scene::Page planned;
    planned.width = page.width;
    planned.height = page.height;
    const scene::Rect paper{0, 0, page.width, page.height};
    const PlanOptions options = optionsFor(page, options_);
    const bool isBlended = options.opacity == OpacityWay::blend && options.rasterDotsPerInch > 0 &&
                           hasTranslucency(page);
    planned.items = isBlended ? planBlended(options, page, paper, warnings)
                              : PagePlanner(options, warnings).plan(std::move(page), paper);
    return planned;
}

}  // namespace psrender::plan
