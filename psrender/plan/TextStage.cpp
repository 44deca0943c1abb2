#include "psrender/plan/TextStage.h"

#include "PS/PSDocument.h"
#include "psrender/plan/TextOutlines.h"

#include <algorithm>
#include <utility>

namespace psrender::plan {

using Fonts::FontKind;
using Fonts::FontProgram;
using scene::Paint;
using scene::Text;

namespace {

/// Glyph numbers from here on have no code in an embedded TrueType font.
constexpr std::uint32_t kFirstWithoutCode = 2048;

bool isEmbeddable(const scene::TextRun& run) {
    const FontProgram& program = *run.program;
    switch (program.getKind()) {
        case FontKind::type1:
            return program.isEmbeddable() ||
                   Drawing::PS::PSDocument::crtPSFontIsStd(program.getMetrics().postScriptName);
        case FontKind::trueType:
            return program.isEmbeddable() &&
                   std::ranges::all_of(run.glyphs, [](const scene::PlacedGlyph& glyph) {
                       return glyph.id < kFirstWithoutCode;
                   });
        default:
            return false;
    }
}

bool staysText(const Text& text) {
    return text.run->isPlain && !isPainted(text.stroke) && text.fill.kind == Paint::Kind::solid &&
           isEmbeddable(*text.run);
}

}  // namespace

void TextStage::take(scene::Item item) {
    if (auto* text = std::get_if<Text>(&item))
        takeText(std::move(*text));
    else
        next_.take(std::move(item));
}

void TextStage::takeText(Text text) {
    if (staysText(text)) {
        next_.take(std::move(text));
        return;
    }
    if (auto shape = outlinesOf(text)) {
        if (!shape->outline->empty())
            next_.take(std::move(*shape));
        return;
    }
    warnings_.add(
        "text in a standard font is filled in one colour, as no font with its outlines "
        "is installed");
    text.stroke = {};
    if (text.fill.kind == Paint::Kind::solid)
        next_.take(std::move(text));
}

}  // namespace psrender::plan
