#include "psrender/paint/ItemPainter.h"

#include "psrender/paint/Conversions.h"

#include <algorithm>
#include <variant>

namespace psrender::paint {

using scene::Affine;
using scene::PlacedGlyph;

void ItemPainter::paint(const scene::ItemList& list) {
    for (const scene::Item& item : list.items)
        std::visit(*this, item);
}

/// Always as a path: a rectangle's corners may be dashed, joined and mitred in its own way.
void ItemPainter::operator()(const scene::Shape& shape) {
    place(shape.transform);
    setPaints(shape.fill, shape.stroke, shape.strokeStyle);
    context_.drawPath(pathOf(*shape.outline, shape.fillRule));
}

void ItemPainter::operator()(const scene::Text& text) {
    const scene::TextRun& run = *text.run;
    if (run.glyphs.empty())
        return;
    place(text.transform);
    setPaints(text.fill, text.stroke, text.strokeStyle);
    context_.setFont(run.font);
    if (!run.isPlain) {
        showGlyphs(text);
        return;
    }
    const Drawing::XPointF origin = pointOf(run.glyphs.front().origin);
    context_.drawText(run.text, 0, origin.x, origin.y, static_cast<float>(run.spacing), false);
}

/// Glyphs that stand upright go out together, each of the others under a transform of its own.
void ItemPainter::showGlyphs(const scene::Text& text) {
    const auto& glyphs = text.run->glyphs;
    Stretch stretch{0, 0, 0};
    while (stretch.first < glyphs.size()) {
        const PlacedGlyph& glyph = glyphs[stretch.first];
        const bool isTurned = glyph.rotation != 0;
        std::size_t length = glyph.textLength;
        stretch.last = stretch.first + 1;
        for (; !isTurned && stretch.last < glyphs.size() && glyphs[stretch.last].rotation == 0;
             ++stretch.last)
            length += glyphs[stretch.last].textLength;
        if (isTurned)
            setTransform(text.transform * Affine::translation(glyph.origin.x, glyph.origin.y) *
                         Affine::rotation(glyph.rotation));
        else
            setTransform(text.transform);
        showStretch(*text.run, stretch, isTurned);
        stretch = {stretch.last, stretch.last, stretch.text + length};
    }
}

void ItemPainter::showStretch(const scene::TextRun& run, const Stretch& stretch, bool isTurned) {
    std::vector<Fonts::FontProgram::GlyphId> ids;
    std::vector<Drawing::XPointF> positions;
    std::vector<Core::String> texts;
    std::size_t at = stretch.text;
    for (std::size_t i = stretch.first; i < stretch.last; ++i) {
        const PlacedGlyph& glyph = run.glyphs[i];
        ids.push_back(glyph.id);
        positions.push_back(isTurned ? Drawing::XPointF() : pointOf(glyph.origin));
        texts.emplace_back(run.text.view().substr(at, glyph.textLength));
        at += glyph.textLength;
    }
    context_.drawGlyphs(ids, positions, texts);
}

void ItemPainter::operator()(const scene::Picture& picture) {
    place(picture.transform);
    context_.drawImage(picture.image, 0, 0, 1, 1, 0);
}

void ItemPainter::operator()(const scene::Placement& placement) {
    place(placement.transform);
    context_.drawDocumentFragment(resources_.fragmentOf(placement.symbol));
}

/// Groups of planned items do nothing but clip.
void ItemPainter::operator()(const scene::BeginGroup& group) {
    clips_.push_back(&*group.clip);
}

void ItemPainter::operator()(const scene::EndGroup& /*end*/) {
    clips_.pop_back();
}

void ItemPainter::place(const Affine& transform) {
    const auto isSame = [](const scene::Clip* a, const scene::Clip* b) {
        return a->area == b->area && a->transform == b->transform;
    };
    if (!std::ranges::equal(clips_, applied_, isSame)) {
        setTransform({});
        Core::Vector<Core::SmartPtr<Drawing::Path>> paths;
        for (const scene::Clip* clip : clips_) {
            const auto& shape = std::get<scene::Shape>(clip->area->items.front());
            paths.push_back(pathOf(shape.outline->transformed(clip->transform * shape.transform),
                                   shape.fillRule));
        }
        context_.setClip(paths);
        applied_ = clips_;
    }
    setTransform(transform);
}

void ItemPainter::setTransform(const Affine& transform) {
    if (transform_ != transform)
        context_.setTransform(matrixOf(*(transform_ = transform)));
}

void ItemPainter::setPaints(const scene::Paint& fill, const scene::Paint& stroke,
                            const scene::StrokeStyle& style) {
    if (fill_ != fill)
        context_.setFill(resources_.brushOf(*(fill_ = fill)));
    if (stroke_ != stroke || style_ != style)
        context_.setStroke(resources_.strokeOf(*(stroke_ = stroke), style_ = style));
}

}  // namespace psrender::paint
