#include "psrender/paint/ItemPainter.h"

#include "psrender/paint/Conversions.h"

namespace psrender::paint {

/// Always as a path: the rectangle operation would lose the fill of a dashed one.
void ItemPainter::operator()(const scene::Shape& shape) {
    setTransform(shape.transform);
    setPaints(shape.fill, shape.stroke, shape.strokeStyle);
    context_.drawPath(pathOf(*shape.outline));
}

/// Glyphs stand upright in a space whose y axis points down.
void ItemPainter::operator()(const scene::Text& text) {
    const scene::TextRun& run = *text.run;
    setTransform(text.transform);
    setPaints(text.fill, {}, {});
    context_.setFont(run.font);
    const scene::Point origin = run.glyphs.empty() ? scene::Point() : run.glyphs.front().origin;
    context_.drawText(run.text, 0, static_cast<float>(origin.x), static_cast<float>(origin.y),
                      static_cast<float>(run.spacing), false);
}

/// The context draws a pixel as large as a unit, and its own positions are whole numbers only.
void ItemPainter::operator()(const scene::Picture& picture) {
    const Drawing::PixelSize size = picture.image->getPixelSize();
    setTransform(picture.transform * scene::Affine::scaling(1.0 / size.width, 1.0 / size.height));
    context_.drawImage(picture.image, 0, 0, static_cast<float>(size.width),
                       static_cast<float>(size.height), 0);
}

void ItemPainter::operator()(const scene::Placement& placement) {
    setTransform(placement.transform);
    context_.drawDocumentFragment(fragmentOf(*placement.symbol));
}

Core::SmartPtr<Drawing::IOutputContext> ItemPainter::fragmentOf(const scene::ItemList& symbol) {
    auto& fragment = fragments_[&symbol];
    if (!fragment) {
        fragment = context_.createDocumentFragment(0, 0);
        ItemPainter painter(*fragment, brushes_);
        for (const scene::Item& item : symbol.items)
            std::visit(painter, item);
    }
    return fragment;
}

void ItemPainter::setTransform(const scene::Affine& transform) {
    if (transform_ != transform)
        context_.setTransform(matrixOf(*(transform_ = transform)));
}

void ItemPainter::setPaints(const scene::Paint& fill, const scene::Paint& stroke,
                            const scene::StrokeStyle& style) {
    if (fill_ != fill)
        context_.setFill(brushes_.brushOf(*(fill_ = fill)));
    if (stroke_ != stroke || style_ != style)
        context_.setStroke(brushes_.strokeOf(*(stroke_ = stroke), style_ = style));
}

}  // namespace psrender::paint
