// The drawing interface, which documents, fragments and tiles share.

#include "native/BulkDrawing.h"
#include "native/NumberMethod.h"

#include "Drawing/Brush.h"
#include "Drawing/Font.h"
#include "Drawing/IOutputContext.h"
#include "Drawing/Image.h"
#include "Drawing/Matrix.h"
#include "Drawing/Object3D.h"
#include "Drawing/Path.h"
#include "Drawing/Stroke.h"

#include <vector>

namespace psgraphics::python {

using Core::SmartPtr;
using namespace Drawing;

namespace {

constexpr NumberMethod kDrawLine{&IOutputContext::drawLine, "draw_line",
                                 "draw_line($self, x1, y1, x2, y2)\n--\n\nDraws with the stroke.",
                                 std::array{"x1", "y1", "x2", "y2"}};
constexpr NumberMethod kDrawRectangle{
    &IOutputContext::drawRectangle, "draw_rectangle",
    "draw_rectangle($self, x, y, width, height, radius_x=0, radius_y=0)\n--\n\nFills and strokes "
    "a rectangle, with rounded corners if both radii are above 0.",
    std::array{"x", "y", "width", "height", "radius_x", "radius_y"}, 4};
constexpr NumberMethod kDrawEllipse{
    &IOutputContext::drawEllipse, "draw_ellipse",
    "draw_ellipse($self, x, y, radius_x, radius_y)\n--\n\nFills and strokes an ellipse around "
    "(x, y).",
    std::array{"x", "y", "radius_x", "radius_y"}};

using Context = py::class_<IOutputContext, SmartPtr<IOutputContext>>;

void bindPages(Context& context) {
    context.def_property_readonly("type", &IOutputContext::getType)
        .def("start_document", &IOutputContext::startDocument)
        .def("end_document", &IOutputContext::endDocument, py::call_guard<py::gil_scoped_release>(),
             "Writes the whole file.")
        .def(
            "start_page",
            [](IOutputContext& self, float width, float height) {
                self.startPage({width, height});
            },
            py::arg("width"), py::arg("height"), "Begins a page; both in points.")
        .def("end_page", &IOutputContext::endPage)
        .def("set_property", &IOutputContext::setProperty, py::arg("name"), py::arg("value"),
             R"("title", "author", "subject", "keywords" and "creator".)");
}

void bindState(Context& context) {
    context
        .def("set_stroke", &IOutputContext::setStroke, py::arg("stroke"),
             "The Stroke of what is drawn from now on, or None.")
        .def("set_fill", &IOutputContext::setFill, py::arg("fill"),
             "The Brush or Color that areas are painted with from now on, or None.")
        .def("set_font", &IOutputContext::setFont, py::arg("font"))
        .def("set_clip", &IOutputContext::setClip, py::arg("paths") = std::vector<SmartPtr<Path>>(),
             "What is drawn from now on shows inside all of the paths, which stand in the current "
             "user space. No paths: no clip. A PSDocument takes no notice.")
        .def("set_transform", &IOutputContext::setTransform, py::arg("transform") = Matrix(),
             "From user space to the page, which is y downwards.");
}

void bindDrawing(Context& context) {
    defineNumberMethod<kDrawLine>(context);
    defineNumberMethod<kDrawRectangle>(context);
    defineNumberMethod<kDrawEllipse>(context);
    context.def("draw_path", &IOutputContext::drawPath, py::arg("path"))
        .def(
            "draw_text",
            [](IOutputContext& self, const Core::String& text, float x, float y, float spacing,
               int flags, bool flag) { self.drawText(text, flags, x, y, spacing, flag); },
            py::arg("text"), py::arg("x"), py::arg("y"), py::arg("spacing") = 0.0F, py::kw_only(),
            py::arg("flags") = 0, py::arg("flag") = false,
            "Shows text with its first glyph's origin at (x, y) and `spacing` more behind each "
            "glyph. `flags` and `flag` are for back ends that tell directions apart.")
        .def("draw_image", &IOutputContext::drawImage, py::call_guard<py::gil_scoped_release>(),
             py::arg("image"), py::arg("x"), py::arg("y"), py::arg("width") = 0.0F,
             py::arg("height") = 0.0F, py::arg("selector") = 0,
             "A width or height of 0 is that in pixels.")
        .def("draw_3d_object", &IOutputContext::draw3DObject, py::arg("object"), py::arg("x"),
             py::arg("y"), py::arg("width"), py::arg("height"))
        .def("create_document_fragment", &IOutputContext::createDocumentFragment, py::arg("width"),
             py::arg("height"), "A context for drawing that is placed many times.")
        .def("draw_document_fragment", &IOutputContext::drawDocumentFragment, py::arg("fragment"))
        .def("is_fragment_of", &IOutputContext::isFragmentOf, py::arg("context"))
        .def("create_pattern_context", &IOutputContext::createPatternOutputContext,
             py::arg("width"), py::arg("height"), "A context for the tile of a PatternBrush.");
}

void bindBulk(Context& context) {
    context
        .def("draw_rectangles", &drawRectangles, py::arg("rectangles"),
             py::arg("colors") = py::none(),
             "All rows (x, y, width, height) of an array; `colors`, an (n, 3) array of bytes, "
             "takes the place of the fill. Leaves the fill of the last one.")
        .def("draw_ellipses", &drawEllipses, py::arg("ellipses"), py::arg("colors") = py::none(),
             "All rows (x, y, radius_x, radius_y) of an array; `colors` as for rectangles.")
        .def("draw_lines", &drawLines, py::arg("lines"), "All rows (x1, y1, x2, y2) of an array.")
        .def("draw_polylines", &drawPolylines, py::arg("vertices"), py::arg("lengths"),
             py::arg("closed") = false, py::arg("colors") = py::none(),
             "Lines through the rows of an (n, 2) array, each of as many vertices as `lengths` "
             "tells; polygons if `closed`.")
        .def("place_fragment", &placeFragment, py::arg("fragment"), py::arg("offsets"),
             py::arg("transform") = Matrix(),
             "Places the fragment at each row of an (n, 2) array, given in the space that "
             "`transform` leads to, which holds afterwards.");
}

}  // namespace

void bindContexts(py::module_& module) {
    py::class_<Object3D, SmartPtr<Object3D>>(module, "Object3D",
                                             "A three-dimensional scene; no document shows one.")
        .def(py::init([] { return Core::makeObject<Object3D>(); }));
    Context context(module, "OutputContext",
                    "The drawing interface. Page space is in points, y downwards, the origin at "
                    "the top left corner. Setters hold until they are called again. Used by one "
                    "thread at a time.");
    bindPages(context);
    bindState(context);
    bindDrawing(context);
    bindBulk(context);
}

}  // namespace psgraphics::python
