// Fonts as they are described, and the programs that answer.

#include "native/Bindings.h"

#include "Drawing/Font.h"
#include "Drawing/Path.h"
#include "Fonts/FontManager.h"
#include "Fonts/FontProgram.h"
#include "Fonts/GlyphSink.h"

namespace psgraphics::python {

using Core::SmartPtr;
using Drawing::Font;
using Drawing::FontSlant;
using Drawing::Path;
using Fonts::FontManager;
using Fonts::FontMetrics;
using Fonts::FontProgram;

namespace {

class PathSink : public Fonts::GlyphSink {
public:
    explicit PathSink(Path& path) : path_(path) {}

    void moveTo(float x, float y) override { path_.moveTo(x, y); }
    void lineTo(float x, float y) override { path_.lineTo(x, y); }
    void curveTo(float x1, float y1, float x2, float y2, float x3, float y3) override {
        path_.curveTo(x1, y1, x2, y2, x3, y3);
    }
    void close() override { path_.close(); }

private:
    Path& path_;
};

SmartPtr<Path> outlineOf(const FontProgram& program, FontProgram::GlyphId glyph) {
    auto path = Core::makeObject<Path>();
    PathSink sink(*path);
    program.decomposeGlyph(glyph, sink);
    return path;
}

/// A script's code is four letters, the first in the highest byte.
std::uint32_t scriptCode(const std::string& letters) {
    std::uint32_t code = 0;
    for (const char letter : letters)
        code = code << 8 | static_cast<unsigned char>(letter);
    return letters.size() == 4 ? code : 0;
}

py::list glyphsOf(const FontProgram& program, const Core::String& text, const std::string& script) {
    py::list glyphs;
    for (const auto glyph : program.mapGlyphs({text, scriptCode(script)}))
        glyphs.append(glyph == FontProgram::kMissingGlyph ? py::object(py::none())
                                                          : py::object(py::int_(glyph)));
    return glyphs;
}

py::object fileOf(const FontProgram& program) {
    const auto file = program.getFile();
    if (!file)
        return py::none();
    return py::make_tuple(file->name, file->faceIndex);
}

void bindPrograms(py::module_& module) {
    py::class_<FontMetrics>(module, "FontMetrics",
                            "What a font says of itself; lengths in 1/1000 em, y upwards.")
        .def_readonly("post_script_name", &FontMetrics::postScriptName)
        .def_readonly("family_name", &FontMetrics::familyName)
        .def_readonly("full_name", &FontMetrics::fullName)
        .def_readonly("ascent", &FontMetrics::ascent)
        .def_readonly("descent", &FontMetrics::descent)
        .def_readonly("cap_height", &FontMetrics::capHeight)
        .def_readonly("x_height", &FontMetrics::xHeight)
        .def_readonly("underline_position", &FontMetrics::underlinePosition)
        .def_readonly("underline_thickness", &FontMetrics::underlineThickness)
        .def_readonly("italic_angle", &FontMetrics::italicAngle);
    py::class_<FontProgram, SmartPtr<FontProgram>>(
        module, "FontProgram", "The data of one font; may be used by several threads.")
        .def_property_readonly("metrics", &FontProgram::getMetrics)
        .def_property_readonly("kind", &FontProgram::getKind)
        .def_property_readonly("embeddable", &FontProgram::isEmbeddable)
        .def_property_readonly("file", &fileOf, "File name and face index, or None.")
        .def("map_glyphs", &glyphsOf, py::arg("text"), py::arg("script") = "",
             "A glyph for each character, None where there is none. `script` is an ISO 15924 code.")
        .def("glyph_name", &FontProgram::getGlyphName, py::arg("glyph"))
        .def("kerning", &FontProgram::getKerning, py::arg("first"), py::arg("second"),
             py::arg("second_is_mark") = false,
             "By how much `second` moves towards `first` in 1/1000 em, or None.")
        .def("advance", &FontProgram::getAdvance, py::arg("glyph"), "In 1/1000 em.")
        .def("outline", &outlineOf, py::arg("glyph"), "A Path in 1/1000 em, y upwards.")
        .def("covers", &FontProgram::covers, py::arg("character"),
             "Whether there is a glyph for the character.");
}

}  // namespace

void bindFonts(py::module_& module) {
    py::class_<Font, SmartPtr<Font>>(module, "Font",
                                     "Which font a text is to be shown in: `size` in user units, "
                                     "`weight` from 100 (thin) to 900 (black).")
        .def(py::init<Core::String, float, int, FontSlant>(), py::arg("family"), py::arg("size"),
             py::arg("weight") = static_cast<int>(Font::kRegular),
             py::arg("slant") = FontSlant::upright)
        .def_property_readonly("family", &Font::getFontFamily)
        .def_property_readonly("size", &Font::getFontSize)
        .def_property_readonly("weight", &Font::getWeight)
        .def_property_readonly("slant", &Font::getSlant);
    bindPrograms(module);
    module.def("find_font", &FontManager::getFont, py::arg("font").none(false),
               "The program that a Font stands for; raises FontNotFoundError if nothing fits.");
    module.def("find_font_for", &FontManager::findFontFor, py::arg("character"),
               py::arg("font").none(false), "A font with a glyph for `character`, or None.");
    module.def("register_font", &FontManager::registerFont, py::arg("family"), py::arg("weight"),
               py::arg("slant"), py::arg("program").none(false),
               "Lets `program` answer for the family in this style from now on.");
    module.def("open_font_file", &FontManager::openFontFile, py::arg("file_name"),
               py::arg("face_index") = 0, "Opens a TrueType, OpenType or Type 1 file.");
    module.def(
        "open_font_data",
        [](const py::bytes& data, const Core::String& name, std::uint32_t faceIndex) {
            return FontManager::openFontData(Core::ByteArray(static_cast<std::string_view>(data)),
                                             name, faceIndex);
        },
        py::arg("data"), py::arg("name"), py::arg("face_index") = 0,
        "The same from memory; `name` tells in messages what the data is.");
}

}  // namespace psgraphics::python
