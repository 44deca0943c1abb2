#include "psrender/plan/effect/Flattening.h"

#include "psrender/plan/blend/Translucency.h"
#include "psrender/plan/effect/EffectSearch.h"
#include "psrender/plan/effect/PixelPicture.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace psrender::plan {

using scene::Item;
using scene::Rect;

namespace {

using Items = std::vector<Item>;

constexpr double kPointsAnInch = 72;
constexpr double kBytesAPoint = 16;
constexpr double kBytesAnItem = 30;
constexpr double kBytesASample = 5;

/// An item, or a group with all that is in it.
struct Unit {
    Items::const_iterator begin;
    Items::const_iterator end;

    [[nodiscard]] Items items() const { return {begin, end}; }
};

std::vector<Unit> unitsOf(const Items& items) {
    std::vector<Unit> units;
    std::size_t depth = 0;
    for (auto it = items.begin(); it != items.end(); ++it) {
        if (depth == 0)
            units.push_back({it, it});
        if (std::holds_alternative<scene::BeginGroup>(*it))
            ++depth;
        else if (std::holds_alternative<scene::EndGroup>(*it))
            --depth;
        units.back().end = std::next(it);
    }
    return units;
}

/// Its texts in black and without groups, to be found beneath a picture.
void addTexts(const Unit& unit, Items& texts) {
    for (auto it = unit.begin; it != unit.end; ++it)
        if (const auto* text = std::get_if<scene::Text>(&*it)) {
            scene::Text hidden = *text;
            hidden.fill = {scene::Color(), 1};
            hidden.stroke = {};
            texts.emplace_back(std::move(hidden));
        }
}

double bytesOf(const scene::Paint& paint) {
    const scene::ColorField* field = paint.field();
    return field != nullptr ? kBytesASample * static_cast<double>(field->colors.size()) : 0;
}

/// Filters take their time for every pixel of their own.
double feasibleDotsPerInch(const Items& items, double wanted) {
    constexpr double kMostFilteredPixels = 30e6;
    const double pixelsAPoint = wanted / kPointsAnInch;
    const double pixels = loadOf(items).filteredArea * pixelsAPoint * pixelsAPoint;
    return pixels > kMostFilteredPixels ? wanted * std::sqrt(kMostFilteredPixels / pixels) : wanted;
}

}  // namespace

double estimatedBytes(const Items& items) {
    double bytes = kBytesAnItem * static_cast<double>(items.size());
    for (const Item& item : items)
        if (const auto* shape = std::get_if<scene::Shape>(&item))
            bytes += kBytesAPoint * static_cast<double>(shape->outline->points().size()) +
                     bytesOf(shape->fill) + bytesOf(shape->stroke);
        else if (const auto* group = std::get_if<scene::BeginGroup>(&item);
                 group != nullptr && group->clip)
            bytes += estimatedBytes(group->clip->area->items);
    return bytes;
}

double bytesOfPicture(const Rect& box, double dotsPerInch) {
    constexpr double kComponents = 3;
    const double pixel = kPointsAnInch / dotsPerInch;
    return kComponents * box.area() / (pixel * pixel);
}

scene::ItemList flattened(const scene::ItemList& page, PixelMaker& maker) {
    const std::vector<Unit> units = unitsOf(page.items);
    const auto isBlended = [](const Unit& unit) { return hasTranslucency({unit.items()}); };
    auto last = std::find_if(units.rbegin(), units.rend(), isBlended).base();
    Items beneath;
    Items texts;
    std::optional<Rect> box;
    for (auto unit = units.begin(); unit != last; ++unit) {
        if (!isBlended(*unit)) {
            beneath.insert(beneath.end(), unit->begin, unit->end);
            continue;
        }
        addTexts(*unit, texts);
        if (const auto own = boxWithEffects(unit->items()))
            box = around(box, *own);
    }
    if (!box)
        return page;
    const Items seen(page.items.begin(), std::prev(last)->end);
    const double dotsPerInch = feasibleDotsPerInch(seen, maker.dotsPerInch());
    if (dotsPerInch < maker.dotsPerInch())
        maker.tellOfFewer();
    const auto area = maker.areaOf(*box, dotsPerInch);
    if (!area)
        return page;
    scene::ItemList result{std::move(beneath)};
    std::ranges::move(texts, std::back_inserter(result.items));
    result.items.emplace_back(onPaper(maker.paint(seen, *area), *area));
    result.items.insert(result.items.end(), std::prev(last)->end, page.items.end());
    return result;
}

}  // namespace psrender::plan
