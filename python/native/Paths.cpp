// Paths, step by step and from arrays.

#include "native/Arrays.h"
#include "native/NumberMethod.h"
#include "native/PathArrays.h"

#include "Drawing/Path.h"

#include <vector>

namespace psgraphics::python {

using Core::SmartPtr;
using namespace Drawing;

namespace {

constexpr NumberMethod kMoveTo{&Path::moveTo, "move_to",
                               "move_to($self, x, y)\n--\n\nBegins a new part.",
                               std::array{"x", "y"}};
constexpr NumberMethod kLineTo{&Path::lineTo, "line_to", "line_to($self, x, y)\n--\n\n",
                               std::array{"x", "y"}};
constexpr NumberMethod kCurveTo{
    &Path::curveTo, "curve_to",
    "curve_to($self, x1, y1, x2, y2, x3, y3)\n--\n\nA cubic Bezier curve with the control points "
    "(x1, y1) and (x2, y2), ending at (x3, y3).",
    std::array{"x1", "y1", "x2", "y2", "x3", "y3"}};

py::tuple commandAt(const Path& path, std::uint64_t index) {
    const PathCommand& step = path.getCommandAt(index);
    switch (step.kind) {
        case PathCommandKind::moveTo:
            return py::make_tuple("move_to", step.x, step.y);
        case PathCommandKind::lineTo:
            return py::make_tuple("line_to", step.x, step.y);
        case PathCommandKind::curveTo:
            return py::make_tuple("curve_to", step.x1, step.y1, step.x2, step.y2, step.x, step.y);
        case PathCommandKind::close:
            break;
    }
    return py::make_tuple("close");
}

py::list commandsOf(const Path& path) {
    py::list all;
    for (std::uint64_t i = 0; i < path.getCommandCount(); ++i)
        all.append(commandAt(path, i));
    return all;
}

}  // namespace

void bindPaths(py::module_& module) {
    py::class_<Path, SmartPtr<Path>> path(module, "Path",
                                          "Lines and curves in user space, in the order in which "
                                          "they are drawn.");
    path.def(py::init([](FillRule rule) {
                 auto made = Core::makeObject<Path>();
                 made->setFillRule(rule);
                 return made;
             }),
             py::arg("fill_rule") = FillRule::nonZero)
        .def_static(
            "from_arrays",
            [](const ArrayOf<float>& vertices, const std::optional<ArrayOf<std::uint8_t>>& codes,
               bool closed, FillRule rule) {
                auto made = pathFrom(vertices, codes, closed);
                made->setFillRule(rule);
                return made;
            },
            py::arg("vertices"), py::arg("codes") = py::none(), py::arg("closed") = false,
            py::arg("fill_rule") = FillRule::nonZero,
            "A path of an (n, 2) array. `codes` tell each vertex's part: 1 move, 2 line, 3 each of "
            "the two points of a quadratic curve, 4 each of the three of a cubic one, 79 close, 0 "
            "end; without them it is one line, or polygon if `closed`.")
        .def_static("rectangle", &PathCommand::rectangle, py::arg("x"), py::arg("y"),
                    py::arg("width"), py::arg("height"), py::arg("radius_x") = 0.0F,
                    py::arg("radius_y") = 0.0F, "A rectangle, with rounded corners if asked.")
        .def("close", &Path::close, "Closes the current part with a line.")
        .def_property("fill_rule", &Path::getFillRule, &Path::setFillRule)
        .def_property_readonly("commands", &commandsOf,
                               "The steps as tuples: a method's name and its arguments.")
        .def("__len__", &Path::getCommandCount);
    defineNumberMethod<kMoveTo>(path);
    defineNumberMethod<kLineTo>(path);
    defineNumberMethod<kCurveTo>(path);
}

}  // namespace psgraphics::python
