#include "psrender/plan/effect/EffectStage.h"

#include "psrender/plan/blend/Translucency.h"
#include "psrender/plan/effect/EffectSearch.h"
#include "psrender/plan/effect/PixelPicture.h"
#include "psrender/plan/geometry/ItemBox.h"
#include "psrender/plan/gradient/Cone.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace psrender::plan {

using raster::Area;
using raster::Pixels;
using scene::BeginGroup;
using scene::Item;
using scene::Rect;

namespace {

constexpr double kPointsAnInch = 72;
constexpr double kDotsPerInchOfScreens = 96;

/// How finely a picture's pixels lie on the page.
double dotsPerInchOf(const scene::Picture& picture) {
    const Drawing::PixelSize size = picture.image->getPixelSize();
    const double width = std::hypot(picture.transform.a, picture.transform.b);
    const double height = std::hypot(picture.transform.c, picture.transform.d);
    return kPointsAnInch * std::max(size.width / width, size.height / height);
}

/// A single picture keeps its own resolution if that is finer. Filters that go by pixels are meant
/// for those of a screen.
double resolutionFor(const std::vector<Item>& items, double usual) {
    if (goesByPixels(items))
        return kDotsPerInchOfScreens;
    const auto* picture = std::get_if<scene::Picture>(&items.front());
    return picture != nullptr ? std::max(usual, dotsPerInchOf(*picture)) : usual;
}

bool isBlended(const std::vector<Item>& items) {
    const auto* group = std::get_if<BeginGroup>(&items.front());
    return group != nullptr && group->effects &&
           group->effects->blendMode != scene::BlendMode::normal;
}

}  // namespace

void EffectStage::pass(Item item) {
    beneath_.add(item);
    Stage::pass(std::move(item));
}

void EffectStage::takeItem(Item item) {
    if (depth_ > 0) {
        group_.push_back(std::move(item));
        return;
    }
    const bool isBlendedThere =
        !cutOuts_.empty() && liesOnCutOut({item}) && hasTranslucency({{item}});
    if (isBlendedThere || hasCone(item))
        showAsPicture({std::move(item)});
    else
        passSingle(std::move(item));
}

/// What lies over a pattern cannot always be blended with it in vectors.
void EffectStage::passSingle(Item item) {
    const scene::Paint* paint = paintOf(item);
    const bool isPattern = paint != nullptr && paint->pattern() != nullptr;
    if (isPattern && hasPicturesOnPatterns_)
        if (const auto box = boxOf(item))
            cutOuts_.push_back(*box);
    pass(std::move(item));
}

void EffectStage::on(scene::Picture picture) {
    if (depth_ > 0 || !picture.image->hasAlpha() || picture.transform.determinant() == 0) {
        takeItem(std::move(picture));
        return;
    }
    showAsPicture({std::move(picture)});
}

/// Groups that only clip are let through, so that all but what needs pixels stays as it is.
void EffectStage::on(BeginGroup group) {
    const bool isKept = depth_ > 0 || group.effects || group.opacity < 1;
    if (!isKept) {
        pass(std::move(group));
        return;
    }
    group_.emplace_back(std::move(group));
    ++depth_;
}

void EffectStage::on(scene::EndGroup end) {
    if (depth_ == 0) {
        pass(end);
        return;
    }
    group_.emplace_back(end);
    if (--depth_ == 0)
        takeGroup();
}

void EffectStage::takeGroup() {
    Items items = std::exchange(group_, {});
    if (hasEffects(items) || (!cutOuts_.empty() && liesOnCutOut(items))) {
        showAsPicture(std::move(items));
        return;
    }
    for (Item& item : items)
        pass(std::move(item));
}

bool EffectStage::liesOnCutOut(const Items& items) const {
    const auto box = boxWithEffects(items);
    return box && std::ranges::any_of(cutOuts_, [&](const Rect& it) { return it.meets(*box); });
}

void EffectStage::showAsPicture(Items items) {
    const auto box = boxWithEffects(items);
    if (!box)
        return;
    if (!maker_.isThere()) {
        showWithoutEffects(std::move(items));
        return;
    }
    try {
        if (const auto area = maker_.areaOf(*box, resolutionFor(items, maker_.dotsPerInch())))
            paint(items, *area);
    } catch (const std::runtime_error&) {
        showWithoutEffects(std::move(items));
    }
}

/// Over one colour, or over nothing, a picture is blended with its own pixels later on.
void EffectStage::paint(const Items& items, const Area& area) {
    const bool isOnCutOut = !cutOuts_.empty() && liesOnCutOut(items);
    const bool isOnlyPicture = std::holds_alternative<scene::Picture>(items.front());
    Items seen = beneath_.within(area.box);
    if (isOnlyPicture && !isOnCutOut && seen.empty()) {
        pass(items.front());
        return;
    }
    Pixels all = maker_.paint(seen, area);
    if (isOnlyPicture && !isOnCutOut && isEven(all)) {
        pass(items.front());
        return;
    }
    const Pixels shape = maker_.paint(items, area);
    const bool isPlain = !isOnCutOut && !isBlended(items) && isEven(all);
    const scene::Color ground = isPlain ? colorOnPaper(all.argb.front()) : scene::Color();
    if (isBlended(items)) {
        seen.insert(seen.end(), items.begin(), items.end());
        all = maker_.paint(seen, area);
    } else if (!isPlain) {
        layOver(shape, all);
    }
    auto picture = isPlain ? pictureOf(shape, area) : cutOut(all, shape, area);
    if (!picture)
        return;
    layTextBeneath(items, ground, shape, area);
    if (picture->isCutOut)
        cutOuts_.push_back(area.box);
    pass(std::move(*picture));
}

/// Text that the picture hides is still found. A plain picture lets it shine through unless it has
/// the colour of the ground.
void EffectStage::layTextBeneath(const Items& items, const scene::Color& ground,
                                 const Pixels& shape, const Area& area) {
    Items texts;
    for (const Item& item : items)
        if (const auto* text = std::get_if<scene::Text>(&item)) {
            scene::Text hidden = *text;
            hidden.stroke = {};
            hidden.fill.source = ground;
            hidden.fill.opacity = 1;
            texts.emplace_back(std::move(hidden));
        }
    if (texts.empty() || !covers(shape, maker_.paint(texts, area)))
        return;
    for (Item& text : texts)
        pass(std::move(text));
}

void EffectStage::showWithoutEffects(Items items) {
    for (Item& item : items) {
        auto* group = std::get_if<BeginGroup>(&item);
        if (group != nullptr && group->effects) {
            const scene::Effects& effects = *group->effects;
            if (effects.filter)
                warnings_.add("filters are left out (filter)");
            if (effects.mask)
                warnings_.add("masks of more than one brightness are left out (mask)");
            if (effects.blendMode != scene::BlendMode::normal)
                warnings_.add("blend modes are left out (mix-blend-mode)");
            group->effects = nullptr;
        } else if (hasCone(item)) {
            warnings_.add("gradients that start beyond their end begin at its edge");
            straighten(item);
        }
        pass(std::move(item));
    }
}

}  // namespace psrender::plan
