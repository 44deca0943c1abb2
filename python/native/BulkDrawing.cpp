#include "native/BulkDrawing.h"

#include "native/PathArrays.h"

#include "Drawing/Brush.h"
#include "Drawing/Matrix.h"
#include "Print/PrintDocument.h"

#include <algorithm>
#include <vector>

namespace psgraphics::python {

using namespace Drawing;

namespace {

/// The fills of a row of shapes; equal neighbours share one brush.
class Fills {
public:
    Fills(IOutputContext& context, const std::optional<Bytes>& colors, std::size_t count)
        : context_(context) {
        if (!colors)
            return;
        colors_.emplace(rowsOf(*colors, 3, "colors"));
        if (colors_->size() != count)
            throw py::value_error("there are " + std::to_string(colors_->size()) + " colors for " +
                                  std::to_string(count) + " shapes");
    }

    void set(std::size_t index) {
        if (!colors_)
            return;
        const std::uint8_t* color = (*colors_)[index];
        if (last_ && std::equal(color, color + 3, last_))
            return;
        last_ = color;
        context_.setFill(Core::makeObject<SolidColorBrush>(
            Core::makeObject<RGBColor>(color[0], color[1], color[2])));
    }

private:
    IOutputContext& context_;
    std::optional<Rows<std::uint8_t>> colors_;
    const std::uint8_t* last_ = nullptr;
};

/// Calls `draw` with the four numbers of each row.
template <class Draw>
void drawAll(IOutputContext& context, const Numbers& shapes, const char* name,
             const std::optional<Bytes>& colors, Draw draw) {
    const Rows<float> rows = rowsOf(shapes, 4, name);
    Fills fills(context, colors, rows.size());
    const py::gil_scoped_release unlocked;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        fills.set(i);
        draw(rows[i]);
    }
}

void requireSum(const ArrayOf<std::int64_t>& lengths, std::size_t vertices) {
    std::size_t sum = 0;
    for (py::ssize_t i = 0; i < lengths.size(); ++i) {
        const std::int64_t length = lengths.data()[i];
        if (length < 0)
            throw py::value_error("a length is below 0");
        sum += static_cast<std::size_t>(length);
    }
    if (sum != vertices)
        throw py::value_error("the lengths make " + std::to_string(sum) +
                              " vertices, but there are " + std::to_string(vertices));
}

}  // namespace

void drawRectangles(IOutputContext& context, const Numbers& rectangles,
                    const std::optional<Bytes>& colors) {
    drawAll(context, rectangles, "rectangles", colors,
            [&](const float* r) { context.drawRectangle(r[0], r[1], r[2], r[3], 0, 0); });
}

void drawEllipses(IOutputContext& context, const Numbers& ellipses,
                  const std::optional<Bytes>& colors) {
    drawAll(context, ellipses, "ellipses", colors,
            [&](const float* e) { context.drawEllipse(e[0], e[1], e[2], e[3]); });
}

void drawLines(IOutputContext& context, const Numbers& lines) {
    drawAll(context, lines, "lines", std::nullopt,
            [&](const float* l) { context.drawLine(l[0], l[1], l[2], l[3]); });
}

void drawPolylines(IOutputContext& context, const Numbers& vertices,
                   const ArrayOf<std::int64_t>& lengths, bool closed,
                   const std::optional<Bytes>& colors) {
    const Rows<float> points = rowsOf(vertices, 2, "vertices");
    requireSum(lengths, points.size());
    const auto count = static_cast<std::size_t>(lengths.size());
    Fills fills(context, colors, count);
    const py::gil_scoped_release unlocked;
    std::size_t first = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const auto length = static_cast<std::size_t>(lengths.data()[i]);
        const auto path = Core::makeObject<Path>();
        path->reserve(length + 1);
        addLine(*path, points[first], length, closed);
        fills.set(i);
        context.drawPath(path);
        first += length;
    }
}

void placeFragment(IOutputContext& context, const Core::SmartPtr<IOutputContext>& fragment,
                   const Numbers& offsets, const Matrix& transform) {
    const Rows<float> places = rowsOf(offsets, 2, "offsets");
    const py::gil_scoped_release unlocked;
    auto* document = dynamic_cast<Print::PrintDocument*>(&context);
    if (document != nullptr && transform == Matrix()) {
        std::vector<XPointF> points;
        for (std::size_t i = 0; i < places.size(); ++i)
            points.push_back({places[i][0], places[i][1]});
        document->setTransform(transform);
        document->drawDocumentFragments(fragment, points);
        return;
    }
    for (std::size_t i = 0; i < places.size(); ++i) {
        Matrix place = transform;
        place.translate(places[i][0], places[i][1]);
        context.setTransform(place);
        context.drawDocumentFragment(fragment);
    }
    context.setTransform(transform);
}

}  // namespace psgraphics::python
