// Matrices and the enumerations of the drawing model.

#include "native/Bindings.h"

#include "Drawing/ColorSpace.h"
#include "Drawing/Font.h"
#include "Drawing/GradientBrush.h"
#include "Drawing/IOutputContext.h"
#include "Drawing/Matrix.h"
#include "Drawing/Path.h"
#include "Drawing/Stroke.h"
#include "Fonts/FontProgram.h"
#include "Print/PrintSettings.h"

#include <array>

namespace psgraphics::python {

using namespace Drawing;

namespace {

using Six = std::array<float, 6>;

Six valuesOf(const Matrix& matrix) {
    return {matrix.getScaleX(), matrix.getShearY(),     matrix.getShearX(),
            matrix.getScaleY(), matrix.getTranslateX(), matrix.getTranslateY()};
}

Matrix matrixOf(const Six& v) {
    return {v[0], v[1], v[2], v[3], v[4], v[5]};
}

py::tuple asTuple(const Matrix& matrix) {
    return py::tuple(py::cast(valuesOf(matrix)));
}

void bindMatrix(py::module_& module) {
    py::class_<Matrix>(
        module, "Matrix",
        "An affine map: x' = a x + c y + e, y' = b x + d y + f. Wherever a Matrix is "
        "asked for, a sequence of these six numbers will do.")
        .def(py::init<>(), "The identity.")
        .def(py::init<float, float, float, float, float, float>(), py::arg("a"), py::arg("b"),
             py::arg("c"), py::arg("d"), py::arg("e"), py::arg("f"))
        .def(py::init(&matrixOf), py::arg("values"))
        .def(
            "multiply",
            [](Matrix& self, const Matrix& other, MatrixOrder order) {
                self.multiply(other, order);
            },
            py::arg("other"), py::arg("order") = MatrixOrder::append,
            "Combines this map with `other`, which is applied after it unless told otherwise.")
        .def("translate", &Matrix::translate, py::arg("x"), py::arg("y"),
             "Appends a move by (x, y).")
        .def_property_readonly("values", &asTuple, "The six numbers.")
        .def(
            "__matmul__",
            [](Matrix self, const Matrix& other) {
                self.multiply(other);
                return self;
            },
            "A new map: this one, and `other` applied to its result.")
        .def("__eq__", [](const Matrix& self, const Matrix& other) { return self == other; })
        .def("__iter__", [](const Matrix& self) { return py::iter(asTuple(self)); })
        .def("__repr__", [](const Matrix& self) {
            return "Matrix" + py::repr(asTuple(self)).cast<std::string>();
        });
    py::implicitly_convertible<py::tuple, Matrix>();
    py::implicitly_convertible<py::list, Matrix>();
}

}  // namespace

void bindValues(py::module_& module) {
    py::enum_<MatrixOrder>(module, "MatrixOrder", "Which of two maps is applied first.")
        .value("APPEND", MatrixOrder::append)
        .value("PREPEND", MatrixOrder::prepend);
    bindMatrix(module);
    py::enum_<LineCap>(module, "LineCap", "The shape at the ends of lines and dashes.")
        .value("BUTT", LineCap::butt)
        .value("ROUND", LineCap::round)
        .value("SQUARE", LineCap::square)
        .value("TRIANGLE", LineCap::triangle);
    py::enum_<LineJoin>(module, "LineJoin", "The shape where lines meet.")
        .value("MITER", LineJoin::miter)
        .value("ROUND", LineJoin::round)
        .value("BEVEL", LineJoin::bevel);
    py::enum_<FillRule>(module, "FillRule", "What lies inside a path.")
        .value("EVEN_ODD", FillRule::evenOdd)
        .value("NON_ZERO", FillRule::nonZero);
    py::enum_<GradientSpread>(module, "GradientSpread", "What a gradient shows beyond its ends.")
        .value("PAD", GradientSpread::pad)
        .value("REPEAT", GradientSpread::repeat)
        .value("REFLECT", GradientSpread::reflect);
    py::enum_<ColorSpaceType>(module, "ColorSpace", "The colour spaces of images and converters.")
        .value("CMYK", ColorSpaceType::cmyk)
        .value("RGB", ColorSpaceType::rgb)
        .value("GRAY", ColorSpaceType::gray)
        .value("ONE_BIT", ColorSpaceType::oneBit);
    py::enum_<FontSlant>(module, "FontSlant")
        .value("UPRIGHT", FontSlant::upright)
        .value("ITALIC", FontSlant::italic)
        .value("OBLIQUE", FontSlant::oblique);
    py::enum_<Fonts::FontKind>(module, "FontKind", "The kinds of font programs.")
        .value("TYPE1", Fonts::FontKind::type1)
        .value("TRUE_TYPE", Fonts::FontKind::trueType)
        .value("OPEN_TYPE_CFF", Fonts::FontKind::openTypeCff);
    py::enum_<OutputType>(module, "OutputType", "What a context draws to.")
        .value("POSTSCRIPT", OutputType::postScript)
        .value("POSTSCRIPT_FRAGMENT", OutputType::postScriptFragment);
    py::enum_<Print::FileForm>(module, "FileForm", "What kind of file a PrintDocument becomes.")
        .value("PAGES", Print::FileForm::pages, "Any number of pages, each with its own size.")
        .value("EPS_INK", Print::FileForm::epsInk, "One page; its bounding box is what is painted.")
        .value("EPS_SHEET", Print::FileForm::epsSheet, "One page, all of it in the bounding box.");
    py::enum_<Print::DuplexEdge>(module, "DuplexEdge", "The edge that sheets are turned over.")
        .value("LONG_EDGE", Print::DuplexEdge::longEdge)
        .value("SHORT_EDGE", Print::DuplexEdge::shortEdge);
}

}  // namespace psgraphics::python
