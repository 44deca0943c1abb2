#pragma once

#include "Core/SmartPtr.h"
#include "Core/String.h"
#include "Drawing/SizeF.h"
#include "Fonts/FontProgram.h"
#include "PS/PSDocument.h"
#include "Print/Export.h"
#include "Print/Forward.h"
#include "Print/PrintSettings.h"

#include <cstdint>
#include <memory>
#include <span>

namespace Drawing::Print {

/// Turns drawing calls into one DSC PostScript file of LanguageLevel 3, or into Encapsulated
/// PostScript, that says what pages need: text that stays text in embedded subset fonts, clips,
/// line joins, even-odd fills, gradients of any kind, tiles and forms that hold anything, pictures
/// as streams, spot inks on plates of their own.
///
///     const auto document = Core::makeObject<Drawing::Print::PrintDocument>(output);
///     document->setProperty(u"title", u"Report");
///     document->startDocument();
///     document->startPage({595, 842});
///     document->drawRectangle(72, 72, 200, 100, 0, 0);
///     document->endPage();
///     document->endDocument();
///
/// It takes every call that a `PSDocument` takes. What differs, beside the file that comes out:
///
/// - The page is y downwards without any `setTransform`, and a transform means the same on every
///   page, whatever its height.
/// - `setClip` holds: what is drawn later shows inside all of the paths, which stand in the user
///   space that is current when it is called. No paths: no clip. A page begins without one.
/// - Paint of opacity 0 is not painted, and of any other below 1 as it looks on white paper: the
///   page is opaque. No brush, or a `NoneBrush`: nothing is painted.
/// - A picture fills the box that `drawImage` is told; a size of 0 stands for its size in pixels.
/// - What a fragment or tile holds is complete when it is first placed or painted with; drawing in
///   it later raises `PrintException`.
///
/// Drawing goes to a private temporary file; `endDocument` writes the header, the resources and
/// the pages to the caller's stream. Pages, pictures, recorded drawing and gradients cost no memory
/// once they are drawn, only fonts do. A resource that one page alone uses is defined on that page,
/// so an interpreter's memory does not grow with pages either.
///
/// What cannot be done, or not at this time, raises `PrintException`; otherwise failures are as in
/// `PSDocument`. A drawing call that raises has drawn nothing.
class PRINT_API PrintDocument : public PS::PSDocument {
public:
    /// A document that `endDocument` writes to `output`; null can be made good by
    /// `setOutputStream`.
    explicit PrintDocument(const Core::SmartPtr<Core::IO::Stream>& output,
                           const PrintSettings& settings = {});
    /// The same with the arguments of a `PSDocument`.
    PrintDocument(const Core::SmartPtr<Core::IO::Stream>& output, bool kernText);
    /// A copy shares everything with the original and writes to the same places.
    PrintDocument(const PrintDocument& other);
    PrintDocument& operator=(const PrintDocument& other);
    ~PrintDocument() override;

    /// Writes the whole file. Raises `PrintException` for an Encapsulated PostScript file that
    /// has not exactly one page, and for a page that was not ended.
    void endDocument() override;
    /// Begins a page of `size` points, both above 0. Stroke, fill, font and transform are those of
    /// the page before, the clip is the page.
    void startPage(const SizeF& size) override;
    void endPage() override;

    void setClip(const Core::Vector<Core::SmartPtr<Path>>& paths) override;
    /// Clips to the glyphs that `drawText` would show with the current font and transform, beside
    /// the clip that holds already.
    void clipToText(const Core::String& text, float x, float y, float spacing);
    void setTransform(const Matrix& transform) override;

    /// Draws with the stroke; a line without length shows with round caps only, as a dot.
    void drawLine(float x1, float y1, float x2, float y2) override;
    void drawRectangle(float x, float y, float width, float height, float radiusX,
                       float radiusY) override;
    void drawEllipse(float centreX, float centreY, float radiusX, float radiusY) override;
    /// Filled by the path's own fill rule, then stroked.
    void drawPath(Core::SmartPtr<Path> path) override;
    /// Shows text in the current font, filled, then stroked; a font that may not be embedded is
    /// drawn by its outlines, and `Log::warning` says so once. Raises `PrintException`
    /// without a font, `FontNotFoundException` for one that nobody knows.
    void drawText(const Core::String& text, int flags, float x, float y, float spacing,
                  bool flag) override;
    /// For hosts that shape text themselves: glyph `glyphs[i]` of the current font with its origin
    /// at `positions[i]` in user space. `texts[i]` is what a reader of the page finds there, empty
    /// for the later glyphs of a cluster; or there are no texts at all. Raises `PrintException` if
    /// the counts differ.
    void drawGlyphs(std::span<const Fonts::FontProgram::GlyphId> glyphs,
                    std::span<const XPointF> positions, std::span<const Core::String> texts);
    /// The same in a font program that no `Font` describes, such as one from a file, `size` units
    /// per em.
    void drawGlyphs(const Core::SmartPtr<Fonts::FontProgram>& program, float size,
                    std::span<const Fonts::FontProgram::GlyphId> glyphs,
                    std::span<const XPointF> positions, std::span<const Core::String> texts);
    void drawImage(Core::SmartPtr<Image> image, float x, float y, float width, float height,
                   int selector) override;
    /// Paints the fill through the image's alpha, or the dark pixels of a one-bit image, as through
    /// a stencil (PLRM 4.10.4).
    void drawStencil(const Core::SmartPtr<Image>& image, float x, float y, float width,
                     float height, int selector);

    /// A context whose drawing is placed with `drawDocumentFragment`, as often as wanted, under
    /// the transform and clip of the place. Its own space is y downwards, too; the size is for the
    /// host only. Belongs to this document alone, and may hold anything, further fragments too.
    Core::SmartPtr<IOutputContext> createDocumentFragment(float width, float height) override;
    /// Raises `PrintException` for a context that is no fragment of this document.
    void drawDocumentFragment(Core::SmartPtr<IOutputContext> context) override;
    /// Places the fragment with its origin at each of `places` in user space: so many calls after a
    /// translation each, in a third of the bytes. Raises as for one.
    void drawDocumentFragments(const Core::SmartPtr<IOutputContext>& context,
                               std::span<const XPointF> places);
    [[nodiscard]] bool isFragmentOf(Core::SmartPtr<IOutputContext> context) const override;
    /// The tile of a `PatternBrush`: what lies outside of (0, 0, width, height) is cut off unless
    /// `PrintForm::setBounds` says otherwise. Both must be above 0.
    Core::SmartPtr<IOutputContext> createPatternOutputContext(float width, float height) override;

    /// What this document shares with its nested contexts; for them alone.
    [[nodiscard]] const Core::SmartPtr<DocumentParts>& parts() const { return documentParts; }

    /// "title", "author", "subject", "keywords" and "creator" (the program that drew) describe the
    /// document, in any script; other names are passed over.
    void setProperty(const Core::String& name, const Core::String& value) override;

    /// Holds from the next page on; before the first page for the whole file. What is not asked
    /// for is left to the printer.
    void requestPrinting(const PrintingRequest& request);
    /// The same from the options of a `PSDocument`: those that differ from a new record's.
    void setPrintingOptions(const PS::PSPrintingOptions& options);

protected:
    /// A nested context of `parent`, which records what is drawn.
    PrintDocument(const PrintDocument& parent, SizeF size);

    [[nodiscard]] const Core::SmartPtr<ContentWriter>& content() const { return contentWriter; }

private:
    [[nodiscard]] Place place() const;
    /// Raises `PrintException` outside of a page.
    void checkPage() const;
    void writePageBegin(const SizeF& size);
    std::uint32_t beginPlacing(const Core::SmartPtr<IOutputContext>& context);
    void showPicture(std::uint32_t id, const Image& image, float x, float y, float width,
                     float height, Brush* fill);
    void showText(const TextRun& run);
    void showOutlines(const Fonts::FontProgram& program, double size,
                      std::span<const Fonts::FontProgram::GlyphId> glyphs,
                      std::span<const XPointF> positions);

    Core::SmartPtr<DocumentParts> documentParts;  ///< shared with all nested contexts
    Core::SmartPtr<ContentWriter> contentWriter;  ///< of this context
};

}  // namespace Drawing::Print
