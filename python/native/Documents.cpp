// The two documents.

#include "native/Arrays.h"
#include "native/PythonStream.h"

#include "Drawing/Image.h"
#include "Drawing/Path.h"
#include "PS/PSDocument.h"
#include "Print/ColorConverter.h"
#include "Print/PrintDocument.h"
#include "Print/PrintForm.h"

#include <utility>
#include <vector>

namespace psgraphics::python {

using Core::SmartPtr;
using namespace Drawing;
using Drawing::Print::ColorConverter;
using Drawing::Print::Components;
using Drawing::Print::PrintDocument;
using Drawing::Print::PrintForm;
using Drawing::PS::PSDocument;

namespace {

/// Colours as a Python function converts them.
class FunctionConverter : public ColorConverter {
public:
    FunctionConverter(ColorSpaceType target, py::function function)
        : ColorConverter(target), function_(std::move(function)) {}
    FunctionConverter(const FunctionConverter&) = delete;
    FunctionConverter& operator=(const FunctionConverter&) = delete;
    ~FunctionConverter() override {
        const py::gil_scoped_acquire lock;
        function_.release().dec_ref();
    }

    [[nodiscard]] Components convert(ColorSpaceType from, const Components& color) const override {
        const py::gil_scoped_acquire lock;
        py::tuple given(ColorSpace(from).getComponentCount());
        for (std::size_t i = 0; i < given.size(); ++i)
            given[i] = color[i];
        const auto made = function_(from, given).cast<std::vector<double>>();
        const auto count = static_cast<std::size_t>(ColorSpace(getTarget()).getComponentCount());
        if (made.size() != count)
            throw py::value_error("a converted color must have " + std::to_string(count) +
                                  " components");
        Components converted{};
        std::copy(made.begin(), made.end(), converted.begin());
        return converted;
    }

private:
    py::function function_;
};

void bindConverters(py::module_& module) {
    py::class_<ColorConverter, SmartPtr<ColorConverter>>(
        module, "ColorConverter",
        "Brings every colour of a PrintDocument to one space, GRAY, RGB or CMYK.")
        .def(py::init([](ColorSpaceType target,
                         const std::optional<py::function>& convert) -> SmartPtr<ColorConverter> {
                 auto plain = ColorConverter::plain(target);
                 if (!convert)
                     return plain;
                 return Core::makeObject<FunctionConverter>(target, *convert);
             }),
             py::arg("target"), py::arg("convert") = py::none(),
             "By the formulas of devices, or by `convert(space, components)`, which gives the "
             "components of the target, all from 0 to 1.")
        .def_property_readonly("target", &ColorConverter::getTarget);
}

void bindPSDocument(py::module_& module) {
    py::class_<PSDocument, IOutputContext, SmartPtr<PSDocument>>(module, "PSDocument",
                                                                 "A document of LanguageLevel 2.")
        .def(py::init([](const py::object& output, bool kernText) {
                 return Core::makeObject<PSDocument>(streamOf(output), kernText);
             }),
             py::arg("output") = py::none(), py::arg("kern_text") = false)
        .def(
            "set_output_stream",
            [](PSDocument& self, const py::object& output) {
                self.setOutputStream(streamOf(output));
            },
            py::arg("output"))
        .def("has_document_fragment", &PSDocument::hasDocumentFragment, py::arg("name"))
        .def(
            "set_printing_options",
            [](PSDocument& self, std::int32_t mediaPosition, std::int32_t jog,
               std::int32_t numCopies, bool duplex, const Core::String& mediaColor) {
                self.setPrintingOptions({mediaPosition, jog, numCopies, duplex, mediaColor});
            },
            py::arg("media_position") = 1, py::arg("jog") = 1, py::arg("num_copies") = 1,
            py::arg("duplex") = false, py::arg("media_color") = "null",
            "`media_color` is a PostScript object as text, such as (blue) or null.")
        .def_static("is_standard_font", &PSDocument::crtPSFontIsStd, py::arg("name"));
}

using Document = py::class_<PrintDocument, PSDocument, SmartPtr<PrintDocument>>;

/// Glyphs in the current font, or in a program of its own.
void drawGlyphs(PrintDocument& self, const std::vector<Fonts::FontProgram::GlyphId>& glyphs,
                const ArrayOf<float>& positions,
                const std::optional<std::vector<Core::String>>& texts,
                const SmartPtr<Fonts::FontProgram>& program, float size) {
    const Rows<float> rows = rowsOf(positions, 2, "positions");
    std::vector<XPointF> points;
    points.reserve(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i)
        points.push_back({rows[i][0], rows[i][1]});
    const std::vector<Core::String> none;
    if (program)
        self.drawGlyphs(program, size, glyphs, points, texts ? *texts : none);
    else
        self.drawGlyphs(glyphs, points, texts ? *texts : none);
}

void bindPrintDrawing(Document& document) {
    document
        .def("clip_to_text", &PrintDocument::clipToText, py::arg("text"), py::arg("x"),
             py::arg("y"), py::arg("spacing") = 0.0F,
             "Clips to the glyphs that draw_text would show, beside the clip that holds already.")
        .def("draw_glyphs", &drawGlyphs, py::arg("glyphs"), py::arg("positions"),
             py::arg("texts") = py::none(), py::arg("program") = nullptr, py::arg("size") = 0.0F,
             "Shows glyphs by their numbers, each with its origin at its row of an (n, 2) array. "
             "`texts` are what a reader of the page finds there, empty for the later glyphs of a "
             "cluster. In the current font, or in `program` with `size` units per em.")
        .def("draw_stencil", &PrintDocument::drawStencil, py::arg("image"), py::arg("x"),
             py::arg("y"), py::arg("width") = 0.0F, py::arg("height") = 0.0F,
             py::arg("selector") = 0,
             "Paints the fill through a picture's alpha, or a one-bit picture's dark pixels.");
}

void requestPrinting(PrintDocument& self, std::optional<bool> duplex, Print::DuplexEdge edge,
                     std::optional<std::int32_t> copies, std::optional<bool> collate,
                     std::optional<std::int32_t> mediaPosition,
                     std::optional<Core::String> mediaColor, std::optional<Core::String> mediaType,
                     std::optional<std::int32_t> jog) {
    Print::PrintingRequest request;
    request.duplex = duplex;
    request.duplexEdge = edge;
    request.copies = copies;
    request.collate = collate;
    request.mediaPosition = mediaPosition;
    request.mediaColor = std::move(mediaColor);
    request.mediaType = std::move(mediaType);
    request.jog = jog;
    self.requestPrinting(request);
}

void bindPrintDocument(py::module_& module) {
    Document document(module, "PrintDocument",
                      "A document of LanguageLevel 3 or an Encapsulated PostScript file. It clips, "
                      "keeps text as text, and takes every kind of paint; a translucent one looks "
                      "as it does on white paper.");
    document
        .def(py::init([](const py::object& output, Print::FileForm form,
                         const SmartPtr<ColorConverter>& colors, bool kerning,
                         bool embedStandardFonts, bool keepHints) {
                 Print::PrintSettings settings;
                 settings.form = form;
                 settings.colors = colors;
                 settings.kerning = kerning;
                 settings.embedStandardFonts = embedStandardFonts;
                 settings.keepHints = keepHints;
                 return Core::makeObject<PrintDocument>(streamOf(output), settings);
             }),
             py::arg("output") = py::none(), py::kw_only(),
             py::arg("form") = Print::FileForm::pages, py::arg("colors") = nullptr,
             py::arg("kerning") = true, py::arg("embed_standard_fonts") = false,
             py::arg("keep_hints") = true)
        .def("request_printing", &requestPrinting, py::kw_only(), py::arg("duplex") = py::none(),
             py::arg("duplex_edge") = Print::DuplexEdge::longEdge, py::arg("copies") = py::none(),
             py::arg("collate") = py::none(), py::arg("media_position") = py::none(),
             py::arg("media_color") = py::none(), py::arg("media_type") = py::none(),
             py::arg("jog") = py::none(),
             "Asks the printer, from the next page on; before the first page for the whole file. "
             "What is None is left to the printer.");
    bindPrintDrawing(document);
    py::class_<PrintForm, PrintDocument, SmartPtr<PrintForm>>(
        module, "PrintForm", "Drawing that a PrintDocument records: a fragment or a tile.")
        .def("set_bounds", &PrintForm::setBounds, py::arg("x"), py::arg("y"), py::arg("width"),
             py::arg("height"), "What of a tile shows; before it is first painted with.");
}

}  // namespace

void bindDocuments(py::module_& module) {
    bindConverters(module);
    bindPSDocument(module);
    bindPrintDocument(module);
}

}  // namespace psgraphics::python
