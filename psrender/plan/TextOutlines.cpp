#include "psrender/plan/TextOutlines.h"

#include "Fonts/FontManager.h"
#include "Fonts/GlyphSink.h"

#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace psrender::plan {

using Core::SmartPtr;
using Core::String;
using Fonts::FontProgram;
using scene::Affine;
using scene::Outline;
using scene::Point;

namespace {

constexpr double kEm = 1000;

/// Collects outlines in the space of a run.
class OutlineSink : public Fonts::GlyphSink {
public:
    void place(const Affine& map) { map_ = map; }
    Outline take() { return std::move(outline_); }

    void moveTo(float x, float y) override { outline_.moveTo(at(x, y)); }
    void lineTo(float x, float y) override { outline_.lineTo(at(x, y)); }
    void curveTo(float x1, float y1, float x2, float y2, float x3, float y3) override {
        outline_.cubicTo(at(x1, y1), at(x2, y2), at(x3, y3));
    }
    void close() override { outline_.close(); }

private:
    [[nodiscard]] Point at(float x, float y) const { return map_.apply({x, y}); }

    Affine map_;
    Outline outline_;
};

struct Design {
    std::u16string_view prefix;  ///< of the PostScript names
    std::array<const char16_t*, 2> families;
};

/// Installed families of the same design and advances as the standard ones.
constexpr std::array kDesigns{
    Design{u"Courier", {u"Nimbus Mono PS", u"Liberation Mono"}},
    Design{u"Helvetica", {u"Nimbus Sans", u"Liberation Sans"}},
    Design{u"Times", {u"Nimbus Roman", u"Liberation Serif"}},
    Design{u"Symbol", {u"Standard Symbols PS", u"Symbol"}},
    Design{u"ZapfDingbats", {u"D050000L", u"Dingbats"}},
};

/// The font to take outlines from; null if there is none.
SmartPtr<FontProgram> substituteFor(const scene::TextRun& run) {
    const String& name = run.program->getMetrics().postScriptName;
    for (const Design& design : kDesigns)
        if (name.view().starts_with(design.prefix))
            for (const char16_t* family : design.families) {
                const auto font = Core::makeObject<Drawing::Font>(
                    String(family), 1.0F, run.font->getWeight(), run.font->getSlant());
                auto program = Fonts::FontManager::findFont(font);
                if (program && program->getMetrics().postScriptName != name &&
                    (program->getFile() || !program->getProgramData().empty()))
                    return program;
            }
    return nullptr;
}

Outline collect(const scene::TextRun& run, const FontProgram& program,
                const std::vector<std::uint32_t>& glyphs) {
    const double scale = run.size / kEm;
    OutlineSink sink;
    for (std::size_t i = 0; i < std::min(glyphs.size(), run.glyphs.size()); ++i) {
        const scene::PlacedGlyph& place = run.glyphs[i];
        sink.place(Affine::translation(place.origin.x, place.origin.y) *
                   Affine::rotation(place.rotation) * Affine::scaling(scale, -scale));
        if (glyphs[i] != FontProgram::kMissingGlyph)
            program.decomposeGlyph(glyphs[i], sink);
    }
    return sink.take();
}

/// With the glyphs of the run's own font, else with those that a substitute has for the text.
std::optional<Outline> collect(const scene::TextRun& run) {
    std::vector<std::uint32_t> glyphs;
    glyphs.reserve(run.glyphs.size());
    for (const scene::PlacedGlyph& glyph : run.glyphs)
        glyphs.push_back(glyph.id);
    Outline own = collect(run, *run.program, glyphs);
    if (!own.empty() || run.program->getFile())
        return own;
    const auto substitute = substituteFor(run);
    if (!substitute)
        return std::nullopt;
    return collect(run, *substitute, substitute->mapGlyphs({run.text, 0}));
}

}  // namespace

std::optional<scene::Shape> outlinesOf(const scene::Text& text) {
    auto outline = collect(*text.run);
    if (!outline)
        return std::nullopt;
    scene::Shape shape;
    shape.outline = std::make_shared<const Outline>(std::move(*outline));
    shape.transform = text.transform;
    shape.fill = text.fill;
    shape.stroke = text.stroke;
    shape.strokeStyle = text.strokeStyle;
    return shape;
}

}  // namespace psrender::plan
