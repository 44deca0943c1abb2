// Text: runs of a font that the document carries, or outlines of one that it may not.

#include "Core/Exception.h"
#include "Drawing/Font.h"
#include "Drawing/Path.h"
#include "Fonts/GlyphSink.h"
#include "PS/fonts/PSFontResource.h"
#include "Print/PrintDocument.h"
#include "Print/PrintException.h"
#include "Print/internal/ContentWriter.h"
#include "Print/internal/TextRunMaker.h"

#include <algorithm>
#include <cmath>

namespace Drawing::Print {

using Core::SmartPtr;
using GlyphId = Fonts::FontProgram::GlyphId;

namespace {

constexpr double kEm = 1000;

/// Gathers the outlines of glyphs as one path in user space, y downwards.
class OutlinePen : public Fonts::GlyphSink {
public:
    OutlinePen(Path& path, double size) : path_(path), scale_(size / kEm) {}

    void setOrigin(XPointF origin) { origin_ = origin; }
    void moveTo(float x, float y) override { path_.moveTo(atX(x), atY(y)); }
    void lineTo(float x, float y) override { path_.lineTo(atX(x), atY(y)); }
    void curveTo(float x1, float y1, float x2, float y2, float x3, float y3) override {
        path_.curveTo(atX(x1), atY(y1), atX(x2), atY(y2), atX(x3), atY(y3));
    }
    void close() override { path_.close(); }

private:
    [[nodiscard]] float atX(float x) const { return static_cast<float>(origin_.x + x * scale_); }
    [[nodiscard]] float atY(float y) const { return static_cast<float>(origin_.y - y * scale_); }

    Path& path_;
    double scale_;
    XPointF origin_;
};

void checkSize(double size) {
    if (!(size > 0) || !std::isfinite(size))
        throw PrintException("a font of size " + std::to_string(size) +
                             " shows nothing; take a finite size above 0");
}

/// Where the glyphs of a line stand when they follow each other.
std::vector<XPointF> placesOf(const GlyphLine& line, const Fonts::FontProgram& program,
                              const TextRun& run) {
    std::vector<XPointF> places;
    double x = run.origin.x;
    for (std::size_t i = 0; i < line.glyphs.size(); ++i) {
        x += line.moves[i];
        places.push_back({static_cast<float>(x), static_cast<float>(run.origin.y)});
        x += program.getAdvance(line.glyphs[i]) * run.size / kEm + run.spacing;
    }
    return places;
}

Box boxAround(std::span<const GlyphId> glyphs, std::span<const XPointF> places,
              const Fonts::FontProgram& program, double size) {
    const auto scale = static_cast<float>(size / kEm);
    Box box;
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        const Box glyph = glyphBox(program, glyphs[i]);
        if (!glyph.isEmpty())
            box.holdBox(glyph.mapped({scale, 0, 0, -scale, places[i].x, places[i].y}));
    }
    return box;
}

}  // namespace

void PrintDocument::drawText(const Core::String& text, int /*flags*/, float x, float y,
                             float spacing, bool /*flag*/) {
    checkPage();
    if (!graphicsState->font)
        throw PrintException("text is drawn without a font; call setFont first");
    const double size = graphicsState->font->getFontSize();
    checkSize(size);
    FontStore::Entry& font = documentParts->fonts.entryOf(graphicsState->font);
    GlyphLine& line = documentParts->line;
    TextRun& run = documentParts->run;
    layOut(text, font, size, kerning, line);
    run.size = size;
    run.origin = {x, y};
    run.spacing = spacing;
    if (!font.font) {
        showOutlines(*font.program, size, line.glyphs, placesOf(line, *font.program, run));
        return;
    }
    encode(line, font, run);
    if (contentWriter->keepsInk())
        run.box = boxAround(line.glyphs, placesOf(line, *font.program, run), *font.program, size);
    contentWriter->drawText(place(), run, graphicsState->fill.get(), graphicsState->stroke.get());
}

void PrintDocument::drawGlyphs(std::span<const GlyphId> glyphs, std::span<const XPointF> positions,
                               std::span<const Core::String> texts) {
    if (!graphicsState->font)
        throw PrintException("glyphs are drawn without a font; call setFont first");
    FontStore::Entry& font = documentParts->fonts.entryOf(graphicsState->font);
    drawGlyphs(font.program, graphicsState->font->getFontSize(), glyphs, positions, texts);
}

void PrintDocument::drawGlyphs(const SmartPtr<Fonts::FontProgram>& program, float size,
                               std::span<const GlyphId> glyphs, std::span<const XPointF> positions,
                               std::span<const Core::String> texts) {
    checkPage();
    checkSize(size);
    if (positions.size() != glyphs.size() || (!texts.empty() && texts.size() != glyphs.size()))
        throw PrintException(std::to_string(glyphs.size()) + " glyphs have " +
                             std::to_string(positions.size()) + " positions and " +
                             std::to_string(texts.size()) + " texts; each needs one");
    if (!program)
        throw PrintException("glyphs are drawn without a font program");
    for (const XPointF& at : positions)
        if (!std::isfinite(at.x) || !std::isfinite(at.y))
            throw PrintException("a glyph is to stand at " + std::to_string(at.x) + ", " +
                                 std::to_string(at.y) + ", which is no place");
    FontStore::Entry& font = documentParts->fonts.entryOf(program);
    if (!font.font) {
        showOutlines(*program, size, glyphs, positions);
        return;
    }
    TextRun& run = documentParts->run;
    run.size = size;
    run.spacing = 0;
    for (std::size_t from = 0; from < glyphs.size();) {
        const std::size_t to = encode(glyphs, positions, texts, from, font, run);
        if (contentWriter->keepsInk())
            run.box = boxAround(glyphs.subspan(from, to - from), positions.subspan(from, to - from),
                                *program, size);
        contentWriter->drawText(place(), run, graphicsState->fill.get(),
                                graphicsState->stroke.get());
        from = to;
    }
}

void PrintDocument::showOutlines(const Fonts::FontProgram& program, double size,
                                 std::span<const GlyphId> glyphs,
                                 std::span<const XPointF> positions) {
    Path outlines;
    OutlinePen pen(outlines, size);
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        pen.setOrigin(positions[i]);
        program.decomposeGlyph(glyphs[i], pen);
    }
    if (outlines.getCommandCount() > 0)
        contentWriter->drawPath(place(), outlines, graphicsState->fill.get(),
                                graphicsState->stroke.get());
}

/// Glyphs of a font without a program in the document clip by their outlines.
void PrintDocument::clipToText(const Core::String& text, float x, float y, float spacing) {
    if (!graphicsState->font)
        throw PrintException("a clip of text needs a font; call setFont first");
    const double size = graphicsState->font->getFontSize();
    checkSize(size);
    FontStore::Entry& font = documentParts->fonts.entryOf(graphicsState->font);
    GlyphLine line;
    layOut(text, font, size, kerning, line);
    auto run = std::make_shared<TextRun>();
    run->size = size;
    run->origin = {x, y};
    run->spacing = spacing;
    const std::vector<XPointF> places = placesOf(line, *font.program, *run);
    std::vector<ClipPart> clip = contentWriter->clip();
    if (font.font) {
        encode(line, font, *run);
        run->box = boxAround(line.glyphs, places, *font.program, size);
        clip.push_back({nullptr, std::move(run), graphicsState->transform});
    } else {
        auto outlines = Core::makeObject<Path>();
        OutlinePen pen(*outlines, size);
        for (std::size_t i = 0; i < line.glyphs.size(); ++i) {
            pen.setOrigin(places[i]);
            font.program->decomposeGlyph(line.glyphs[i], pen);
        }
        clip.push_back({outlines, nullptr, graphicsState->transform});
    }
    contentWriter->setClip(std::move(clip));
}

}  // namespace Drawing::Print
