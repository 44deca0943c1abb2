// What each stage promises about all that it passes on, tried on drawings that have something of
// everything: the row stands as the planner builds it, with a look between its stages.

#include "psrender/plan/Carried.h"
#include "psrender/plan/PlacementStage.h"
#include "psrender/plan/Planner.h"
#include "psrender/plan/blend/BlendStage.h"
#include "psrender/plan/blend/Translucency.h"
#include "psrender/plan/blend/WhiteStage.h"
#include "psrender/plan/clip/ClipStage.h"
#include "psrender/plan/geometry/ItemBox.h"
#include "psrender/plan/geometry/RangeStage.h"
#include "psrender/plan/gradient/GradientStage.h"
#include "psrender/svg/SvgReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace psrender::plan {

namespace {

using namespace scene;

/// Looks at what goes by.
class Watch : public Sink {
public:
    using Promise = std::function<bool(const Item&)>;

    Watch(std::string stage, Promise isKept, Sink& next)
        : stage_(std::move(stage)), isKept_(std::move(isKept)), next_(next) {}

    void take(Item item) override {
        EXPECT_TRUE(isKept_(item)) << stage_ << ", item of kind " << item.index();
        depth_ += std::holds_alternative<BeginGroup>(item) ? 1 : 0;
        depth_ -= std::holds_alternative<EndGroup>(item) ? 1 : 0;
        EXPECT_GE(depth_, 0) << stage_;
        next_.take(std::move(item));
    }
    void finish() override {
        EXPECT_EQ(0, depth_) << stage_ << " closes what it opens";
        next_.finish();
    }

private:
    std::string stage_;
    Promise isKept_;
    Sink& next_;
    int depth_ = 0;
};

bool isEach(const Item& item, const std::function<bool(const Paint&)>& is) {
    if (const auto* shape = std::get_if<Shape>(&item))
        return is(shape->fill) && is(shape->stroke);
    const auto* text = std::get_if<Text>(&item);
    return text == nullptr || (is(text->fill) && is(text->stroke));
}

bool isOpaqueSymbol(const Item& item) {
    const auto* placement = std::get_if<Placement>(&item);
    return placement == nullptr || !hasTranslucency(*placement->symbol);
}

bool hasPlannedTiles(const Item& item) {
    return isEach(item, [](const Paint& paint) {
        const Pattern* pattern = paint.pattern();
        return pattern == nullptr || (pattern->tile.x == 0 && pattern->tile.y == 0 &&
                                      !hasTranslucency(*pattern->content));
    });
}

bool clipsByOneShape(const Clip& clip) {
    return clip.area->items.size() == 1 && std::holds_alternative<Shape>(clip.area->items[0]);
}

bool clipsOrFades(const Item& item) {
    const auto* group = std::get_if<BeginGroup>(&item);
    return group == nullptr || (group->clip ? group->opacity == 1 && clipsByOneShape(*group->clip)
                                            : group->opacity != 1);
}

bool isOpaqueItem(const Item& item) {
    const auto* group = std::get_if<BeginGroup>(&item);
    if (group != nullptr)
        return group->opacity == 1 && group->clip && clipsByOneShape(*group->clip);
    return !hasTranslucency(ItemList{{item}});
}

bool hasCountableColors(const Item& item) {
    return isEach(item, [&](const Paint& paint) {
        const Gradient* gradient = paint.gradient();
        return gradient == nullptr || transformOf(item)->isInvertible();
    });
}

bool isWithinReach(const Item& item) {
    const auto box = boxOf(item);
    return !box || kWithinReach.grown(1e4).contains(*box);
}

/// Everything at once: what comes out of the planner, on pages as in tiles and symbols.
bool isPaintable(const Item& item) {
    const auto* placement = std::get_if<Placement>(&item);
    return isOpaqueItem(item) && hasPlannedTiles(item) && isWithinReach(item) &&
           (placement == nullptr || std::ranges::all_of(placement->symbol->items, isPaintable));
}

Page drawing(const std::string& body) {
    Warnings warnings;
    return svg::readSvg(
        "<svg xmlns='http://www.w3.org/2000/svg' width='100pt' height='100pt' viewBox='0 0 100 "
        "100'><defs><linearGradient id='g'><stop stop-color='red'/><stop offset='1' "
        "stop-color='blue' stop-opacity='.5'/></linearGradient><radialGradient id='r' r='.0001' "
        "spreadMethod='reflect' href='#g'/><pattern id='p' width='.1' height='.1' "
        "overflow='visible'><circle r='6' fill='url(#g)'/></pattern><clipPath id='c'><circle "
        "cx='40' cy='50' r='30'/><circle cx='60' cy='50' r='30'/></clipPath><clipPath id='d' "
        "clip-path='url(#c)'><text y='60' font-size='90'>AB</text></clipPath><g id='s'><path "
        "d='M0 0h9v9h-9zM2 2h5v5h-5z' fill-rule='evenodd'/><path d='M0 0c9 0 9 9 0 9' "
        "stroke='red' stroke-dasharray='1 2'/><path clip-path='url(#c)' d='M30 0h20v99' "
        "fill='url(#p)'/></g></defs>" +
            body + "</svg>",
        "test", warnings);
}

const char* const kDrawings[] = {
    "<rect width='100' height='100' fill='url(#g)'/><circle cx='50' cy='50' r='40' "
    "fill='url(#p)' opacity='.5'/><text x='5' y='50' font-size='30' fill='url(#g)' "
    "stroke='blue' opacity='.7'>Text</text>",
    "<use href='#s'/><use href='#s' x='20'/><use href='#s' x='40' y='20'/><use href='#s' "
    "opacity='.3'/>",
    "<g clip-path='url(#c)'><g opacity='.5'><rect width='60' height='60'/><g "
    "clip-path='url(#d)'><rect width='100' height='100' fill='url(#r)'/></g></g><path "
    "d='M-1e9 5H1e9' stroke='green' stroke-dasharray='1e-9'/></g><svg width='10' height='10' "
    "overflow='hidden'><rect width='5' height='5'/><rect width='50' height='50'/></svg>",
};

/// The planner's row with a watch behind every stage.
void planWatched(const Page& page, bool isWhite) {
    Warnings warnings;
    Budget budget;
    const auto planAlone = [&](std::vector<Item> items) {
        Page alone;
        alone.items = std::move(items);
        return Planner().plan(std::move(alone), warnings).items;
    };
    Collector planned;
    Watch inRange("range", isWithinReach, planned);
    RangeStage range(warnings, inRange);
    Watch countable("gradients", hasCountableColors, range);
    GradientStage gradients(warnings, countable);
    Watch opaque("translucency", isOpaqueItem, gradients);
    BlendStage blending(budget, warnings, opaque);
    WhiteStage white(opaque);
    Watch clipped("clips", clipsOrFades, isWhite ? static_cast<Sink&>(white) : blending);
    ClipStage clips(budget, warnings, clipped);
    Watch tiled("patterns", hasPlannedTiles, clips);
    PatternStage patterns(planAlone, warnings, tiled);
    Watch placed("placements", isOpaqueSymbol, patterns);
    PlacementStage placements(page, planAlone, placed);
    for (const Item& item : page.items)
        placements.take(item);
    placements.finish();
    EXPECT_FALSE(planned.items.empty());
}

TEST(Promises, AreKeptByEveryStage) {
    for (const char* body : kDrawings)
        for (const bool isWhite : {false, true})
            planWatched(drawing(body), isWhite);
}

TEST(Promises, HoldForAllOfAPageInTheEnd) {
    for (const char* body : kDrawings)
        for (const OpacityWay way : {OpacityWay::blend, OpacityWay::white}) {
            Warnings warnings;
            const Page page = Planner({0, way}).plan(drawing(body), warnings);
            EXPECT_TRUE(std::ranges::all_of(page.items, isPaintable)) << body;
        }
}

TEST(Clips, AreLeftOutWhereTheyDoNothing) {
    Warnings warnings;
    const auto groupsOf = [&](const std::string& body) {
        const Page page = Planner().plan(drawing(body), warnings);
        return std::ranges::count_if(
            page.items, [](const Item& item) { return std::holds_alternative<BeginGroup>(item); });
    };
    const auto within = [](const std::string& body) {
        return "<svg width='50' height='50' overflow='hidden'>" + body + "</svg>";
    };
    const std::string inside = "<rect width='9' height='9'/>";
    const std::string across = "<rect width='60' height='9'/>";
    EXPECT_EQ(0, groupsOf(within(inside + inside)));
    EXPECT_EQ(1, groupsOf(within(across + inside + across))) << "one run of items";
    EXPECT_EQ(0, groupsOf(within("<rect x='60' width='9' height='9'/>"))) << "nothing to see";
    EXPECT_EQ(2, groupsOf("<g clip-path='url(#c)'>" + within(across) + "</g>"));
    EXPECT_TRUE(warnings.empty());
}

}  // namespace

}  // namespace psrender::plan
