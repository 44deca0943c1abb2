// What the setters store, and the transform as it is written before every drawing.

#include "Core/FixedFormat.h"
#include "PS/PSDocument.h"

#include <utility>

namespace Drawing::PS {

using Core::formatFixed;
using Core::writeFixed;

void PSDocument::setStroke(Core::SmartPtr<Stroke> stroke) {
    graphicsState->stroke = std::move(stroke);
}

void PSDocument::setFill(Core::SmartPtr<Brush> fill) {
    graphicsState->fill = std::move(fill);
}

void PSDocument::setFont(Core::SmartPtr<Font> font) {
    graphicsState->font = std::move(font);
}

void PSDocument::setClip(const Core::Vector<Core::SmartPtr<Path>>& paths) {
    graphicsState->clipPaths = paths;
}

void PSDocument::setTransform(const Matrix& transform) {
    graphicsState->transform = transform;
    const Matrix flip(1, 0, 0, -1, 0, graphicsState->pageSize.height);
    graphicsState->transform.multiply(flip, MatrixOrder::append);
}

/// Every drawing writes the whole line, but its numbers are formatted only when they changed.
void PSDocument::writeTransform() {
    const Matrix& m = graphicsState->transform;
    if (matrixLine.text.empty() || matrixLine.matrix != m)
        matrixLine = {m, formatFixed<"[{0} {1} {2} {3} {4} {5}] cm\n">(
                             m.getScaleX(), m.getShearY(), m.getShearX(), m.getScaleY(),
                             m.getTranslateX(), m.getTranslateY())};
    scriptStream->write(matrixLine.text);
}

void PSDocument::beginState() {
    writeFixed<"q\n">(*scriptStream);
}

void PSDocument::endState() {
    writeFixed<"Q\n">(*scriptStream);
}

}  // namespace Drawing::PS
