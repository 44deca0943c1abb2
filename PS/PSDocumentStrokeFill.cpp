// Painting the current path: the fill in brackets of its own, so that the path survives for the
// stroke; the stroke with all its parameters, which hold until the shape's closing "Q"
// (PLRM 4.5).

#include "Core/Exception.h"
#include "Core/FixedFormat.h"
#include "Drawing/Stroke.h"
#include "PS/PSDocument.h"

#include <algorithm>
#include <string_view>

namespace Drawing::PS {

using Core::writeFixed;

namespace {

char* append(char* out, std::string_view text) {
    return std::copy(text.begin(), text.end(), out);
}

}  // namespace

void PSDocument::writeFill() {
    const Core::SmartPtr<Brush> fill = graphicsState->fill;
    if (!fill || fill->getOpacity() == 0.0F)
        return;
    writeBrush(fill);
    if (graphicsState->fillRule == PSGraphicsState::kEvenOdd)
        writeFixed<"f*\n">(*scriptStream);
    else if (graphicsState->fillRule == PSGraphicsState::kNonZero)
        writeFixed<"f\n">(*scriptStream);
}

/// The stroke's brush is painted whatever its opacity, and the line join stays the interpreter's.
void PSDocument::writeStroke() {
    const Core::SmartPtr<Stroke> stroke = graphicsState->stroke;
    if (!stroke)
        return;
    writeFixed<" {0} w\n">(*scriptStream, stroke->getThickness());
    writeDashes(*stroke);
    writeLineCap(*stroke);
    writeFixed<"{0} M\n">(*scriptStream, stroke->getMiterLimit());
    writeBrush(stroke->getBrush());
    writeFixed<"s\n">(*scriptStream);
}

/// Dashes and gaps are written at twice their length, the offset as it is. No dashes, no line:
/// the dash pattern of the surrounding state stays in force. The line is committed as a whole, so
/// that a number that cannot be written leaves none of it.
void PSDocument::writeDashes(const Stroke& stroke) {
    const Core::Vector<float>& dashes = stroke.getDashArray();
    if (dashes.empty())
        return;
    constexpr std::size_t kNumber = Core::kMaxNumberText<float> + 1;
    char* out = scriptStream->reserve((dashes.size() + 2) * kNumber);
    out = append(out, "[");
    for (const float dash : dashes) {
        out = Core::writeNumber(out, dash * 2.0F);
        *out++ = ' ';
    }
    out = append(out, "] ");
    out = Core::writeNumber(out, stroke.getDashOffset());
    scriptStream->commit(append(out, " d\n"));
}

void PSDocument::writeLineCap(const Stroke& stroke) {
    switch (stroke.getDashCap()) {
        case LineCap::butt:
            writeFixed<"0 J\n">(*scriptStream);
            break;
        case LineCap::round:
            writeFixed<"1 J\n">(*scriptStream);
            break;
        case LineCap::square:
            writeFixed<"2 J\n">(*scriptStream);
            break;
        case LineCap::triangle:
            break;
        default:
            throw Core::UnreacheableCodeException("PSDocument", 968);
    }
}

void PSDocument::fillInBrackets() {
    if (!graphicsState->hasFill())
        return;
    beginState();
    writeFill();
    endState();
}

void PSDocument::writeStrokeAndFill() {
    fillInBrackets();
    writeStroke();
}

}  // namespace Drawing::PS
