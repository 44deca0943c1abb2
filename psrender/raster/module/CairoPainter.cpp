#include "psrender/raster/module/CairoPainter.h"

#include "psrender/raster/module/CairoPaints.h"
#include "psrender/raster/module/Extent.h"
#include "psrender/raster/module/FilterRunner.h"
#include "psrender/raster/module/Luminance.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace psrender::raster {

namespace {

using scene::Affine;
using scene::Rect;

/// Finer tiles are left out, as what they look like cannot be told apart any more.
constexpr double kMostTiles = 40000;

constexpr std::array kOperators{
    CAIRO_OPERATOR_OVER,          CAIRO_OPERATOR_MULTIPLY,       CAIRO_OPERATOR_SCREEN,
    CAIRO_OPERATOR_OVERLAY,       CAIRO_OPERATOR_DARKEN,         CAIRO_OPERATOR_LIGHTEN,
    CAIRO_OPERATOR_COLOR_DODGE,   CAIRO_OPERATOR_COLOR_BURN,     CAIRO_OPERATOR_HARD_LIGHT,
    CAIRO_OPERATOR_SOFT_LIGHT,    CAIRO_OPERATOR_DIFFERENCE,     CAIRO_OPERATOR_EXCLUSION,
    CAIRO_OPERATOR_HSL_HUE,       CAIRO_OPERATOR_HSL_SATURATION, CAIRO_OPERATOR_HSL_COLOR,
    CAIRO_OPERATOR_HSL_LUMINOSITY};

cairo_operator_t operatorOf(scene::BlendMode mode) {
    return kOperators.at(static_cast<std::size_t>(mode));
}

/// The box of what may be painted now, in the current space.
Rect clipBox(cairo_t* context) {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    cairo_clip_extents(context, &left, &top, &right, &bottom);
    return Rect::between({left, top}, {right, bottom});
}

bool needsGround(const scene::BeginGroup& group) {
    return group.opacity < 1 ||
           (group.effects &&
            (group.effects->filter || group.effects->mask ||
             group.effects->blendMode != scene::BlendMode::normal || group.effects->isIsolated));
}

}  // namespace

void CairoPainter::paint(const std::vector<scene::Item>& items) {
    const scene::Item* const end = items.data() + items.size();
    for (const scene::Item& item : items) {
        current_ = &item;
        end_ = end;
        std::visit(*this, item);
    }
}

void CairoPainter::setTransform(const Affine& map) {
    const cairo_matrix_t matrix = matrixOf(toPixels_ * map);
    cairo_set_matrix(context_, &matrix);
}

template <class Draw>
Pattern CairoPainter::group(cairo_content_t content, Draw draw) {
    cairo_push_group_with_content(context_, content);
    draw();
    return Pattern(cairo_pop_group(context_));
}

Pattern CairoPainter::through(Pattern source, Pattern mask) {
    return group(CAIRO_CONTENT_COLOR_ALPHA, [&] {
        cairo_set_source(context_, source.get());
        cairo_mask(context_, mask.get());
    });
}

/// Items in another space, with groups of their own.
void CairoPainter::paintAside(const std::vector<scene::Item>& items, const Affine& toPixels) {
    CairoPainter(context_, toPixels, outlines_).paint(items);
}

void CairoPainter::operator()(const scene::Shape& shape) {
    if (!(toPixels_ * shape.transform).isInvertible())
        return;
    if (isPainted(shape.fill))
        paintPart(shape, Part::fill);
    if (isPainted(shape.stroke))
        paintPart(shape, Part::stroke);
}

void CairoPainter::paintPart(const scene::Shape& shape, Part part) {
    const scene::Paint& paint = part == Part::fill ? shape.fill : shape.stroke;
    cairo_save(context_);
    setTransform(shape.transform);
    if (paint.pattern() != nullptr) {
        paintTiles(shape, part, paint);
    } else if (const Pattern pattern = patternOf(paint)) {
        cairo_set_source(context_, pattern.get());
        drawPart(shape, part);
    }
    cairo_restore(context_);
}

void CairoPainter::drawPart(const scene::Shape& shape, Part part) {
    addPath(context_, *shape.outline);
    if (part == Part::fill) {
        cairo_set_fill_rule(context_, shape.fillRule == scene::FillRule::evenOdd
                                          ? CAIRO_FILL_RULE_EVEN_ODD
                                          : CAIRO_FILL_RULE_WINDING);
        cairo_fill(context_);
        return;
    }
    setStroke(context_, shape.strokeStyle);
    cairo_stroke(context_);
}

void CairoPainter::paintTiles(const scene::Shape& shape, Part part, const scene::Paint& paint) {
    const Pattern coverage = group(CAIRO_CONTENT_ALPHA, [&] {
        cairo_set_source_rgba(context_, 0, 0, 0, paint.opacity);
        drawPart(shape, part);
    });
    const scene::Pattern& pattern = *paint.pattern();
    const Affine toPixels = toPixels_ * shape.transform * pattern.transform;
    const Pattern tiles = group(CAIRO_CONTENT_COLOR_ALPHA, [&] { layTiles(pattern, toPixels); });
    cairo_set_source(context_, tiles.get());
    cairo_mask(context_, coverage.get());
}

void CairoPainter::layTiles(const scene::Pattern& pattern, const Affine& toPixels) {
    const Rect& tile = pattern.tile;
    if (!toPixels.isInvertible() || tile.width <= 0 || tile.height <= 0)
        return;
    const cairo_matrix_t matrix = matrixOf(toPixels);
    cairo_set_matrix(context_, &matrix);
    const Rect box = clipBox(context_);
    const double firstColumn = std::floor((box.x - tile.x) / tile.width);
    const double firstRow = std::floor((box.y - tile.y) / tile.height);
    const double columns = std::ceil((box.right() - tile.x) / tile.width) - firstColumn;
    const double rows = std::ceil((box.bottom() - tile.y) / tile.height) - firstRow;
    if (columns * rows > kMostTiles)
        return;
    for (int row = 0; row < static_cast<int>(rows); ++row)
        for (int column = 0; column < static_cast<int>(columns); ++column) {
            const Affine place = toPixels * Affine::translation((firstColumn + column) * tile.width,
                                                                (firstRow + row) * tile.height);
            cairo_save(context_);
            const cairo_matrix_t toPlace = matrixOf(place);
            cairo_set_matrix(context_, &toPlace);
            if (pattern.isClipped) {
                cairo_rectangle(context_, tile.x, tile.y, tile.width, tile.height);
                cairo_clip(context_);
            }
            paintAside(pattern.content->items, place);
            cairo_restore(context_);
        }
}

void CairoPainter::operator()(const scene::Text& text) {
    if (const auto shape = outlines_(text))
        (*this)(*shape);
}

void CairoPainter::operator()(const scene::Picture& picture) {
    if (!(toPixels_ * picture.transform).isInvertible())
        return;
    cairo_save(context_);
    setTransform(picture.transform);
    const Pattern pattern = patternOf(*picture.image);
    if (!picture.isSmooth)
        cairo_pattern_set_filter(pattern.get(), CAIRO_FILTER_NEAREST);
    cairo_set_source(context_, pattern.get());
    cairo_rectangle(context_, 0, 0, 1, 1);
    cairo_clip(context_);
    cairo_paint_with_alpha(context_, picture.opacity);
    cairo_restore(context_);
}

void CairoPainter::operator()(const scene::Placement& placement) {
    paintAside(placement.symbol->items, toPixels_ * placement.transform);
}

/// A filter looks at all of a group, what clips around it hide included.
void CairoPainter::operator()(const scene::BeginGroup& group) {
    const bool isClipped = group.clip && clipToShape(*group.clip);
    const bool isAside = needsGround(group) || (group.clip && !isClipped);
    if (!isClipped)
        cairo_save(context_);
    levels_.push_back({&group, isAside, isClipped});
    if (!isAside)
        return;
    cairo_save(context_);
    if (group.effects && group.effects->filter)
        clipToRegion(*group.effects->filter);
    else
        clipToExtent();
    cairo_push_group(context_);
}

void CairoPainter::operator()(const scene::EndGroup& /*end*/) {
    if (levels_.empty())
        return;
    const Level level = levels_.back();
    levels_.pop_back();
    const scene::BeginGroup& group = *level.group;
    if (level.isAside) {
        Pattern content(cairo_pop_group(context_));
        const bool isFiltered = group.effects && group.effects->filter;
        if (isFiltered)
            cairo_restore(context_);
        if (isFiltered)
            content = filtered(std::move(content), *group.effects->filter);
        cairo_identity_matrix(context_);
        if (group.clip && !level.isClipped)
            content = through(std::move(content), coverageOf(*group.clip));
        if (group.effects && group.effects->mask)
            content = through(std::move(content), maskOf(*group.effects->mask));
        if (group.effects)
            cairo_set_operator(context_, operatorOf(group.effects->blendMode));
        cairo_identity_matrix(context_);
        cairo_set_source(context_, content.get());
        cairo_paint_with_alpha(context_, group.opacity);
        if (!isFiltered)
            cairo_restore(context_);
    }
    cairo_restore(context_);
}

/// So that a small group takes a small surface.
void CairoPainter::clipToExtent() {
    const auto extent = extentOfGroup(current_, end_, toPixels_);
    if (!extent)
        return;
    constexpr double kMargin = 2;
    cairo_identity_matrix(context_);
    cairo_rectangle(context_, std::floor(extent->x) - kMargin, std::floor(extent->y) - kMargin,
                    std::ceil(extent->width) + 2 * kMargin,
                    std::ceil(extent->height) + 2 * kMargin);
    cairo_clip(context_);
}

/// The state is saved if this is true.
bool CairoPainter::clipToShape(const scene::Clip& clip) {
    if (clip.area->items.size() != 1)
        return false;
    const auto* shape = std::get_if<scene::Shape>(&clip.area->items.front());
    if (shape == nullptr || !isPainted(shape->fill) || isPainted(shape->stroke))
        return false;
    const Affine map = clip.transform * shape->transform;
    if (!(toPixels_ * map).isInvertible())
        return false;
    cairo_save(context_);
    setTransform(map);
    addPath(context_, *shape->outline);
    cairo_set_fill_rule(context_, shape->fillRule == scene::FillRule::evenOdd
                                      ? CAIRO_FILL_RULE_EVEN_ODD
                                      : CAIRO_FILL_RULE_WINDING);
    cairo_clip(context_);
    return true;
}

Pattern CairoPainter::coverageOf(const scene::Clip& clip) {
    return group(CAIRO_CONTENT_ALPHA,
                 [&] { paintAside(clip.area->items, toPixels_ * clip.transform); });
}

Pattern CairoPainter::maskOf(const scene::Mask& mask) {
    Pattern content = group(CAIRO_CONTENT_COLOR_ALPHA, [&] {
        cairo_save(context_);
        if (mask.region) {
            setTransform(mask.regionTransform);
            cairo_rectangle(context_, mask.region->x, mask.region->y, mask.region->width,
                            mask.region->height);
            cairo_clip(context_);
        }
        paintAside(mask.content->items, toPixels_ * mask.transform);
        cairo_restore(context_);
    });
    if (!mask.isAlpha)
        turnIntoLuminance(content.get());
    return content;
}

/// What a filter looks at, whatever clips there are around it.
void CairoPainter::clipToRegion(const scene::Filter& filter) {
    const auto box = pixelsOf(filter, toPixels_ * filter.transform, cairo_get_target(context_));
    cairo_reset_clip(context_);
    cairo_identity_matrix(context_);
    if (box)
        cairo_rectangle(context_, box->x, box->y, box->width, box->height);
    cairo_clip(context_);
}

/// Nothing is left of what a filter does not look at.
Pattern CairoPainter::filtered(Pattern source, const scene::Filter& filter) const {
    const Affine toPixels = toPixels_ * filter.transform;
    const auto box = pixelsOf(filter, toPixels, cairo_get_target(context_));
    return box ? applyFilter(std::move(source), filter, toPixels, *box) : std::move(source);
}

}  // namespace psrender::raster
