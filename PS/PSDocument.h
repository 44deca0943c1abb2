#pragma once

#include "Core/ByteArray.h"
#include "Core/SmartPtr.h"
#include "Core/Stream.h"
#include "Core/String.h"
#include "Drawing/IOutputContext.h"
#include "Drawing/Matrix.h"
#include "Drawing/PathCommand.h"
#include "Drawing/SizeF.h"
#include "PS/Export.h"
#include "PS/Forward.h"
#include "PS/ImageEncodeType.h"
#include "PS/PSGradient.h"
#include "PS/PSGraphicsState.h"
#include "PS/PSPrintingOptions.h"

#include <cstdint>
#include <list>
#include <map>
#include <string>

namespace Drawing::PS {

/// Turns drawing calls into one DSC PostScript file.
///
/// Drawing is written at once to a private temporary file; `endDocument` writes the header, the
/// procedure set and every resource that the pages referred to to the caller's stream, and
/// copies the pages behind them. So memory does not grow with the number of pages.
///
///     const auto document = Core::makeObject<Drawing::PS::PSDocument>(output, false);
///     document->startDocument();
///     document->startPage({595, 842});
///     document->setTransform({});
///     document->drawRectangle(72, 72, 200, 100, 0, 0);
///     document->endPage();
///     document->endDocument();
///
/// Failures are exceptions: `NullPointerException` for a missing stream, page or object,
/// `UnreacheableCodeException` (source "PSDocument") for values out of their range,
/// `NumberRangeException` for a number that PostScript cannot read, `FormatException` for an image
/// whose alpha plane is too short, `IOException` for streams.
/// What was written before stays written, whole lines at a time.
///
/// A copy of a document shares its streams, its graphics state and the elements of its
/// registries, and writes to the same places. One thread at a time drives a document and the
/// nested contexts that it made.
class PS_API PSDocument : public IOutputContext {
public:
    /// A document that `endDocument` writes to `output`, which it holds a reference to; null can
    /// be made good by `setOutputStream`. `kernText` adds the procedures that show kerned text.
    PSDocument(Core::IO::Stream* output, bool kernText);
    PSDocument(const Core::SmartPtr<Core::IO::Stream>& output, bool kernText)
        : PSDocument(output.get(), kernText) {}
    /// A context of the given size that draws straight into `stream`: no temporary file, no
    /// output stream, a graphics state from the start.
    PSDocument(Core::IO::Stream* stream, SizeF size, bool kernText);
    PSDocument(const PSDocument& other);
    PSDocument& operator=(const PSDocument& other);
    ~PSDocument() override;

    [[nodiscard]] OutputType getType() const override;
    void startDocument() override;
    /// Writes the whole file. Registries and streams stay as they are; a second call writes a
    /// second file behind the first.
    void endDocument() override;
    /// Begins a page of `size` points. Stroke, fill, font and transform are those of the page
    /// before.
    void startPage(const SizeF& size) override;
    void endPage() override;

    void setStroke(Core::SmartPtr<Stroke> stroke) override;
    void setFill(Core::SmartPtr<Brush> fill) override;
    /// Stored only: clipping has no PostScript form here.
    void setClip(const Core::Vector<Core::SmartPtr<Path>>& paths) override;
    /// Folds the flip to PostScript's upward y axis in, with the height of the current page: to be
    /// called on every page before the first drawing.
    void setTransform(const Matrix& transform) override;

    /// Draws with the stroke; a line without length only with round caps, as a dot.
    void drawLine(float x1, float y1, float x2, float y2) override;
    /// A dashed border is drawn as four straight sides, each starting at a corner.
    void drawRectangle(float x, float y, float width, float height, float radiusX,
                       float radiusY) override;
    void drawEllipse(float centreX, float centreY, float radiusX, float radiusY) override;
    void drawPath(Core::SmartPtr<Path> path) override;
    void setFont(Core::SmartPtr<Font> font) override;
    void drawText(const Core::String& text, int flags, float x, float y, float spacing,
                  bool flag) override;
    /// Draws at the pixel size in user units, at (x, y) cut to integers; `width` and `height`
    /// play no part: the transform gives the size.
    void drawImage(Core::SmartPtr<Image> image, float x, float y, float width, float height,
                   int selector) override;
    /// Not supported: raises `UnreacheableCodeException`, line 1591.
    void draw3DObject(Core::SmartPtr<Object3D> object, float x, float y, float width,
                      float height) override;

    Core::SmartPtr<IOutputContext> createDocumentFragment(float width, float height) override;
    /// Anything but a fragment is ignored.
    void drawDocumentFragment(Core::SmartPtr<IOutputContext> context) override;
    [[nodiscard]] bool isFragmentOf(Core::SmartPtr<IOutputContext> context) const override;
    Core::SmartPtr<IOutputContext> createPatternOutputContext(float width, float height) override;

    [[nodiscard]] Core::SmartPtr<ResourceManager> getResourceManager() const override;
    void setProperty(const Core::String& name, const Core::String& value) override;

    /// The stream that `endDocument` writes to; null in a nested context.
    [[nodiscard]] Core::SmartPtr<Core::IO::Stream> getDocStm() const;
    void setOutputStream(Core::SmartPtr<Core::IO::Stream> stream);
    [[nodiscard]] bool hasDocumentFragment(const Core::String& name) const;
    /// Written at once: before the first page it holds for the whole file. Inside a page it
    /// erases what that page shows so far, as every page device does (PLRM 6.1).
    void setPrintingOptions(PSPrintingOptions options);

    /// The integer part of component * a + 255 (1 - a), a = alpha / 255: a component over white.
    [[nodiscard]] static std::uint8_t getBlendedColor(std::uint8_t component, std::uint8_t alpha);

    /// The pixels over white: each component is composited with full intensity, in every colour
    /// space. The image must have alpha; raises `FormatException` (source "PSDocument") if it has
    /// fewer alpha values than pixels.
    [[nodiscard]] static Core::ByteArray getTransparentBytes(const Core::SmartPtr<Image>& image,
                                                             int selector);

    /// Whether `name` is one of the fonts that every interpreter has: the 14 standard names and
    /// "Times", in any case.
    [[nodiscard]] static bool crtPSFontIsStd(const Core::String& name);

protected:
    void writeClip() override;

    /// Writes `text` in the multibyte code page, without a line end.
    static void write(const Core::SmartPtr<Core::IO::Stream>& stream, const Core::String& text);
    /// The same and a line feed, on every platform.
    static void writeLn(const Core::SmartPtr<Core::IO::Stream>& stream, const Core::String& text);

    void beginState();
    void endState();
    void moveTo(float x, float y);
    void lineTo(float x, float y);
    void curveTo(float x1, float y1, float x2, float y2, float x3, float y3);
    void closePath();
    /// `flag` plays no part.
    void writePath(const Core::SmartPtr<Path>& path, bool flag);
    void writeFill();
    void writeStroke();
    void writeStrokeAndFill();
    void writeBrush(const Core::SmartPtr<Brush>& brush);
    /// Selects the resource that shows `text` in the current font, made now if need be.
    void writeFont(const Core::String& text);
    /// Paints the operand that the font resource wrote, at (x, y).
    void writeTextStrokeAndFill(float x, float y);
    /// The name of a spot colour with "#20" for every blank.
    [[nodiscard]] static Core::String getEscapedColorName(const Core::SmartPtr<Color>& color);
    /// The colour as a PostScript array of numbers 0 to 1; empty for kinds that have none.
    [[nodiscard]] static Core::String formatColorArray(const Core::SmartPtr<Color>& color);

    /// Whether this very object is registered.
    [[nodiscard]] bool hasGradientFill(const Core::SmartPtr<PSGradient>& gradient) const;
    static void writeFunctionType2(const Core::SmartPtr<Core::IO::Stream>& stream,
                                   const Core::String& name, const Core::SmartPtr<Color>& from,
                                   const Core::SmartPtr<Color>& to);
    static void writeGradientFill(const Core::SmartPtr<Core::IO::Stream>& stream,
                                  const Core::Vector<StopPoint>& stops, std::uint64_t shadingType,
                                  const Core::String& coords);
    /// Defines one tile; `context` is a `PSPatternBrush`.
    void writePatternBrush(const Core::SmartPtr<IOutputContext>& context);
    /// Writes what this nested context refers to (fonts, images, gradients) to `stream`, the
    /// stream of the document that is being assembled.
    void writeContextResources(const Core::SmartPtr<Core::IO::Stream>& stream);

    /// Defines all registered images on the output stream: data in arrays of strings, as
    /// LanguageLevel 2 needs it.
    void writeImageResourcesLevel2(ImageEncodeType encoding);
    /// The same with reusable streams, for interpreters of LanguageLevel 3. Documents do not use
    /// it; a subclass may.
    void writeImageResourcesLevel3(ImageEncodeType encoding);

    using ContextMap = std::map<Core::String, Core::SmartPtr<IOutputContext>>;
    using FontMap = std::map<Core::String, Core::Vector<Core::SmartPtr<PSFontResource>>>;
    using ImageMap = std::map<Core::String, Core::SmartPtr<Image>>;

    Core::SmartPtr<Core::IO::Stream> scriptStream;    ///< where drawing goes
    Core::SmartPtr<PSGraphicsState> graphicsState;    ///< null until the first page
    std::list<Core::SmartPtr<PSGradient>> gradients;  ///< in the order of registration
    ContextMap fragments;
    FontMap fonts;  ///< by the font's hash key
    ImageMap images;
    ContextMap patterns;
    PSPrintingOptions printingOptions;
    Core::SmartPtr<PSFontResource> currentFontResource;  ///< selected by the last text
    Core::SmartPtr<Core::IO::Stream> outputStream;
    std::int32_t pageIndex = -1;
    std::int32_t languageLevel = 2;
    /// Printing options were set since the last page began (or none has begun).
    bool pageDeviceFlag = false;
    bool kerning;
    Core::SmartPtr<ResourceManager> resourceManager;

private:
    /// The matrix line written last, which stays the same until the next `setTransform`.
    struct MatrixLine {
        Matrix matrix;
        std::string text;
    };

    void copyScriptFromTempFile();
    void writeHeaderComments();
    void writeProcedureSet();
    void writeKerningProcedures();
    void writeFragment(const Core::SmartPtr<IOutputContext>& context);
    void writeFonts(const Core::SmartPtr<Core::IO::Stream>& stream);
    void writeGradients(const Core::SmartPtr<Core::IO::Stream>& stream) const;
    static void writeGradient(const Core::SmartPtr<Core::IO::Stream>& stream,
                              const PSGradient& gradient);

    void writePageSize();
    void writePrintingOptions();
    void showPage();

    void writeTransform();
    void beginShape();
    void endShape();
    void drawSide(float x1, float y1, float x2, float y2);
    void drawDashedBorder(float x, float y, float width, float height);
    void fillInBrackets();
    void writeCommand(const PathCommand& command, bool isFirst, bool isLast, PointWriter& points);

    void writeDashes(const Stroke& stroke);
    void writeLineCap(const Stroke& stroke);
    void writeSolidColor(const Core::SmartPtr<Color>& color);
    void writeSpotColor(const Core::SmartPtr<Color>& color);
    void writeGradientBrush(const GradientBrush& brush);
    void writePatternUse(const PatternBrush& brush);
    static void assignShaderName(PSGradient& gradient);

    Core::SmartPtr<PSFontResource> selectResource(
        Core::Vector<Core::SmartPtr<PSFontResource>>& resources, const Core::String& text) const;
    void writeTextFill();
    void writeStandardTextFill();

    void writeImages(const Core::SmartPtr<Core::IO::Stream>& stream,
                     ImageEncodeType encoding) const;
    static Core::ByteArray opaqueBytes(const Core::SmartPtr<Image>& image, int selector);

    /// The call that shows kerned text in a standard font, as it was last made.
    struct KernCall {
        std::uint32_t font = 0;  ///< number of the resource
        std::string text;
    };
    [[nodiscard]] const std::string& kernCallOfFont();

    MatrixLine matrixLine;
    KernCall kernCall;
};

}  // namespace Drawing::PS
