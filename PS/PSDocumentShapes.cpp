// Geometry: a shape is "q", the clip, the matrix, a path, its paint, "Q". Coordinates are those
// of the caller, unchanged (PLRM 4.4).

#include "Core/FixedFormat.h"
#include "Drawing/Path.h"
#include "Drawing/Stroke.h"
#include "Drawing/Util.h"
#include "PS/PSDocument.h"
#include "PS/internal/PointWriter.h"

namespace Drawing::PS {

using Core::writeFixed;

void PSDocument::moveTo(float x, float y) {
    writeFixed<"{0} {1} m\n">(*scriptStream, x, y);
}

void PSDocument::lineTo(float x, float y) {
    writeFixed<"{0} {1} l\n">(*scriptStream, x, y);
}

void PSDocument::curveTo(float x1, float y1, float x2, float y2, float x3, float y3) {
    writeFixed<"{0} {1} {2} {3} {4} {5} c\n">(*scriptStream, x1, y1, x2, y2, x3, y3);
}

void PSDocument::closePath() {
    writeFixed<"cp\n">(*scriptStream);
}

void PSDocument::beginShape() {
    beginState();
    writeClip();
    writeTransform();
}

void PSDocument::endShape() {
    endState();
}

/// Every path ends up filled by the non-zero rule: a close in its midst selects even-odd, but the
/// assignment behind the last command has the last word.
void PSDocument::writePath(const Core::SmartPtr<Path>& path, bool /*flag*/) {
    const std::uint64_t count = path->getCommandCount();
    PointWriter points(*scriptStream);
    if (count > 0)
        points.write(path->getCommandAt(0).x, path->getCommandAt(0).y, " m\n");
    for (std::uint64_t i = 0; i < count; ++i)
        writeCommand(path->getCommandAt(i), i == 0, i + 1 == count, points);
    graphicsState->fillRule = PSGraphicsState::kNonZero;
}

/// A path is opened by a move to its first point whatever its first command is. Later subpaths
/// are opened by the long name "moveto": "m" would drop the path before them.
void PSDocument::writeCommand(const PathCommand& command, bool isFirst, bool isLast,
                              PointWriter& points) {
    switch (command.kind) {
        case PathCommandKind::moveTo:
            if (!isFirst) {
                points.beginSubpath();
                points.write(command.x, command.y, " moveto\n");
            }
            break;
        case PathCommandKind::lineTo:
            points.write(command.x, command.y, " l\n");
            break;
        case PathCommandKind::curveTo:
            curveTo(command.x1, command.y1, command.x2, command.y2, command.x, command.y);
            break;
        case PathCommandKind::close:
            closePath();
            if (!isLast)
                graphicsState->fillRule = PSGraphicsState::kEvenOdd;
            break;
        default:
            break;
    }
}

void PSDocument::drawLine(float x1, float y1, float x2, float y2) {
    if (!graphicsState->hasStroke())
        return;
    const bool isDot = x1 == x2 && y1 == y2;
    if (isDot && graphicsState->stroke->getDashCap() != LineCap::round)
        return;
    beginShape();
    moveTo(x1, y1);
    lineTo(x2, y2);
    writeStroke();
    endShape();
}

void PSDocument::drawRectangle(float x, float y, float width, float height, float radiusX,
                               float radiusY) {
    beginShape();
    writePath(PathCommand::rectangle(x, y, width, height, radiusX, radiusY), false);
    if (graphicsState->hasStroke() && !graphicsState->stroke->getDashArray().empty())
        drawDashedBorder(x, y, width, height);
    else
        writeStrokeAndFill();
    endShape();
}

/// Straight sides, each from a corner, so that the dashes start alike on all of them; rounded
/// corners are not followed.
void PSDocument::drawDashedBorder(float x, float y, float width, float height) {
    const float right = x + width;
    const float bottom = y + height;
    beginState();
    drawSide(x, y, right, y);
    drawSide(x, y, x, bottom);
    drawSide(x, bottom, right, bottom);
    drawSide(right, y, right, bottom);
    fillInBrackets();
    endState();
}

void PSDocument::drawSide(float x1, float y1, float x2, float y2) {
    moveTo(x1, y1);
    lineTo(x2, y2);
    beginState();
    writeStroke();
    endState();
}

void PSDocument::drawEllipse(float centreX, float centreY, float radiusX, float radiusY) {
    beginShape();
    Core::Vector<XPointF> points;
    Util::bezierArc(centreX - radiusX, centreY - radiusY, centreX + radiusX, centreY + radiusY, 0.0,
                    360.0, points);
    for (std::size_t k = 0; k < points.size(); k += 4) {
        if (k == 0)
            moveTo(points[0].x, points[0].y);
        curveTo(points[k + 1].x, points[k + 1].y, points[k + 2].x, points[k + 2].y, points[k + 3].x,
                points[k + 3].y);
    }
    closePath();
    writeStrokeAndFill();
    endShape();
}

void PSDocument::drawPath(Core::SmartPtr<Path> path) {
    beginShape();
    writePath(path, true);
    writeStrokeAndFill();
    endShape();
}

}  // namespace Drawing::PS
