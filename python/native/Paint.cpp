// Colours, brushes and strokes.

#include "native/Arrays.h"

#include "Drawing/Brush.h"
#include "Drawing/ColorFieldBrush.h"
#include "Drawing/GradientBrush.h"
#include "Drawing/IOutputContext.h"
#include "Drawing/PatternBrush.h"
#include "Drawing/SpotColor.h"
#include "Drawing/Stroke.h"

#include <utility>
#include <vector>

namespace psgraphics::python {

using Core::SmartPtr;
using namespace Drawing;

namespace {

using Stops = std::vector<std::pair<float, SmartPtr<Color>>>;

Core::Vector<StopPoint> stopsOf(const Stops& pairs) {
    Core::Vector<StopPoint> stops;
    stops.reserve(pairs.size());
    for (const auto& [position, color] : pairs)
        stops.push_back({position, color});
    return stops;
}

void bindColors(py::module_& module) {
    py::class_<Color, SmartPtr<Color>>(module, "Color", "A colour of some kind; never changes.");
    py::class_<RGBColor, Color, SmartPtr<RGBColor>>(module, "RGBColor",
                                                    "Device RGB, 0 to 255 a component.")
        .def(py::init<std::uint8_t, std::uint8_t, std::uint8_t>(), py::arg("red"), py::arg("green"),
             py::arg("blue"))
        .def_property_readonly("red", &RGBColor::getR)
        .def_property_readonly("green", &RGBColor::getG)
        .def_property_readonly("blue", &RGBColor::getB);
    py::class_<GrayScaleColor, Color, SmartPtr<GrayScaleColor>>(
        module, "GrayScaleColor", "Device grey, 0 (black) to 255 (white).")
        .def(py::init<std::uint8_t>(), py::arg("gray"))
        .def_property_readonly("gray", &GrayScaleColor::getG);
    py::class_<CMYKColor, Color, SmartPtr<CMYKColor>>(module, "CMYKColor",
                                                      "Device CMYK, 0 (no ink) to 1 a component.")
        .def(py::init<double, double, double, double>(), py::arg("cyan"), py::arg("magenta"),
             py::arg("yellow"), py::arg("black"))
        .def_property_readonly("cyan", &CMYKColor::getC)
        .def_property_readonly("magenta", &CMYKColor::getM)
        .def_property_readonly("yellow", &CMYKColor::getY)
        .def_property_readonly("black", &CMYKColor::getK);
    py::class_<SpotColor, Color, SmartPtr<SpotColor>>(
        module, "SpotColor",
        "A named ink at some strength, on a plate of its own. Devices without it show `rgb` or "
        "`cmyk` in its place.")
        .def(py::init([](const Core::String& name, SmartPtr<RGBColor> rgb, SmartPtr<CMYKColor> cmyk,
                         double tint) {
                 return Core::makeObject<SpotColor>(
                     name, Core::makeObject<ColorSubstitute>(std::move(rgb), std::move(cmyk)),
                     tint);
             }),
             py::arg("name"), py::arg("rgb") = nullptr, py::arg("cmyk") = nullptr,
             py::arg("tint") = 1.0)
        .def_property_readonly("name", &SpotColor::getColorName)
        .def_property_readonly("tint", &SpotColor::getTint);
}

void bindGradients(py::module_& module) {
    py::class_<GradientBrush, Brush, SmartPtr<GradientBrush>>(
        module, "GradientBrush",
        "Colours that run into each other. `stops` are pairs of a position, 0 to 1, and a colour.")
        .def_property("spread", &GradientBrush::getSpread, &GradientBrush::setSpread,
                      "What shows beyond the ends; set before the brush is first used.")
        .def_property(
            "extend", &GradientBrush::getExtend,
            [](GradientBrush& self, std::pair<bool, bool> extend) {
                self.setExtend(extend.first, extend.second);
            },
            "Whether colours go on before the start and behind the end.");
    py::class_<LinearGradientBrush, GradientBrush, SmartPtr<LinearGradientBrush>>(
        module, "LinearGradientBrush", "A gradient along the line from `start` to `end`.")
        .def(py::init([](XPointF start, XPointF end, const Stops& stops, const Matrix& matrix,
                         float opacity) {
                 return Core::makeObject<LinearGradientBrush>(start, end, stopsOf(stops), matrix,
                                                              opacity);
             }),
             py::arg("start"), py::arg("end"), py::arg("stops"), py::arg("matrix") = Matrix(),
             py::arg("opacity") = 1.0F);
    py::class_<RadialGradientBrush, GradientBrush, SmartPtr<RadialGradientBrush>>(
        module, "RadialGradientBrush", "A gradient between two circles.")
        .def(py::init([](XPointF centre, float firstRadius, float secondRadius, const Stops& stops,
                         const std::optional<XPointF>& firstCentre, const Matrix& matrix,
                         float opacity) {
                 return Core::makeObject<RadialGradientBrush>(firstCentre.value_or(centre),
                                                              firstRadius, centre, secondRadius,
                                                              stopsOf(stops), matrix, opacity);
             }),
             py::arg("centre"), py::arg("first_radius"), py::arg("second_radius"), py::arg("stops"),
             py::arg("first_centre") = py::none(), py::arg("matrix") = Matrix(),
             py::arg("opacity") = 1.0F,
             "From the circle around `first_centre`, which is `centre` unless told, to the one "
             "around `centre`.");
}

/// `colors` is an array of rows, columns and three components.
SmartPtr<ColorFieldBrush> colorField(XPointF corner, SizeF size,
                                     const ArrayOf<std::uint8_t>& colors, const Matrix& matrix,
                                     float opacity) {
    if (colors.ndim() != 3 || colors.shape(2) != 3)
        throw py::value_error("colors must be an array of shape (rows, columns, 3)");
    return Core::makeObject<ColorFieldBrush>(
        corner, size, static_cast<std::int32_t>(colors.shape(1)),
        static_cast<std::int32_t>(colors.shape(0)),
        Core::ByteArray(colors.data(), static_cast<std::size_t>(colors.size())), matrix, opacity);
}

void bindBrushes(py::module_& module) {
    py::class_<Brush, SmartPtr<Brush>>(
        module, "Brush",
        "What an area or a line is painted with; never changes. Wherever a Brush is asked for, a "
        "Color will do.")
        .def(py::init([](SmartPtr<Color> color) -> SmartPtr<Brush> {
                 return Core::makeObject<SolidColorBrush>(std::move(color));
             }),
             py::arg("color").none(false))
        .def_property_readonly("opacity", &Brush::getOpacity);
    py::implicitly_convertible<Color, Brush>();
    py::class_<SolidColorBrush, Brush, SmartPtr<SolidColorBrush>>(module, "SolidColorBrush",
                                                                  "One colour everywhere.")
        .def(py::init<SmartPtr<Color>, float>(), py::arg("color").none(false),
             py::arg("opacity") = 1.0F)
        .def_property_readonly("color", &SolidColorBrush::getColor);
    py::class_<NoneBrush, Brush, SmartPtr<NoneBrush>>(module, "NoneBrush", "No paint.")
        .def(py::init<>());
    bindGradients(module);
    py::class_<ColorFieldBrush, Brush, SmartPtr<ColorFieldBrush>>(
        module, "ColorFieldBrush",
        "Colours that change in both directions of a rectangle, given at the crossings of a grid. "
        "Outside of the rectangle nothing is painted.")
        .def(py::init(&colorField), py::arg("corner"), py::arg("size"), py::arg("colors"),
             py::arg("matrix") = Matrix(), py::arg("opacity") = 1.0F,
             "`colors` is an array of shape (rows, columns, 3), at least 2 by 2, 0 to 255.");
}

void bindStrokes(py::module_& module) {
    py::class_<Stroke, SmartPtr<Stroke>>(
        module, "Stroke",
        "How a line is drawn; lengths are in user space. Must not change once it is in use.")
        .def(py::init([](SmartPtr<Brush> brush, float thickness, LineCap cap, LineJoin join,
                         float miterLimit, Core::Vector<float> dashes, float dashOffset) {
                 auto stroke = brush ? Core::makeObject<Stroke>(std::move(brush), thickness)
                                     : Core::makeObject<Stroke>();
                 stroke->setThickness(thickness);
                 stroke->setDashCap(cap);
                 stroke->setLineJoin(join);
                 stroke->setMiterLimit(miterLimit);
                 stroke->setDashArray(std::move(dashes));
                 stroke->setDashOffset(dashOffset);
                 return stroke;
             }),
             py::arg("brush") = nullptr, py::arg("thickness") = 1.0F,
             py::arg("cap") = LineCap::butt, py::arg("join") = LineJoin::miter,
             py::arg("miter_limit") = 10.0F, py::arg("dashes") = Core::Vector<float>(),
             py::arg("dash_offset") = 0.0F, "Without a brush the line is black.")
        .def_property("brush", &Stroke::getBrush, &Stroke::setBrush)
        .def_property("thickness", &Stroke::getThickness, &Stroke::setThickness)
        .def_property("cap", &Stroke::getDashCap, &Stroke::setDashCap)
        .def_property("join", &Stroke::getLineJoin, &Stroke::setLineJoin)
        .def_property("miter_limit", &Stroke::getMiterLimit, &Stroke::setMiterLimit)
        .def_property("dashes", &Stroke::getDashArray, &Stroke::setDashArray)
        .def_property("dash_offset", &Stroke::getDashOffset, &Stroke::setDashOffset);
}

/// A context is bound later, so that its methods can name brushes.
void bindPatterns(py::module_& module) {
    py::class_<PatternBrush, Brush, SmartPtr<PatternBrush>>(
        module, "PatternBrush",
        "Paints with a tile, drawn into a context that create_pattern_context of the painting "
        "document made. `matrix` leads from the tile's space to user space.")
        .def(py::init<SmartPtr<IOutputContext>, const Matrix&, XPointF, float>(),
             py::arg("context").none(false), py::arg("matrix") = Matrix(),
             py::arg("origin") = XPointF(), py::arg("opacity") = 1.0F);
}

}  // namespace

void bindPaint(py::module_& module) {
    bindColors(module);
    bindBrushes(module);
    bindStrokes(module);
    bindPatterns(module);
}

}  // namespace psgraphics::python
