#pragma once

#include "Core/Forward.h"
#include "Core/Object.h"
#include "Core/SmartPtr.h"
#include "Drawing/Export.h"
#include "Drawing/Forward.h"

#include <cstdint>

namespace Drawing {

/// What a context draws to; the numbers are part of the interface.
enum class OutputType : std::int32_t { postScript = 6, postScriptFragment = 9 };

/// The drawing interface: a layout engine calls it once for a document, in page order, and a back
/// end turns the calls into its format.
///
/// Page space is in points, y downwards, origin at the top left corner. The setters describe what
/// later drawing calls use, until they are set anew; null means "none". Objects handed over are
/// shared, not copied, and must not change while the document is open. A context is used by one
/// thread at a time.
///
/// The order of the operations is fixed: back ends in other libraries rely on it.
class DRAWING_API IOutputContext : public Core::Object {
public:
    ~IOutputContext() override;

    [[nodiscard]] virtual OutputType getType() const = 0;

    virtual void startDocument() = 0;
    virtual void endDocument() = 0;
    virtual void startPage(const SizeF& size) = 0;
    virtual void endPage() = 0;

    virtual void setStroke(Core::SmartPtr<Stroke> stroke) = 0;
    virtual void setFill(Core::SmartPtr<Brush> fill) = 0;
    /// What is drawn later shows inside all of the paths; none: no clip. A `PSDocument` stores them
    /// and clips nothing.
    virtual void setClip(const Core::Vector<Core::SmartPtr<Path>>& paths) = 0;
    /// From the user space of later calls to page space. A `PSDocument` takes the height of the
    /// current page into it, so there it has to be set on each page before the first drawing.
    virtual void setTransform(const Matrix& transform) = 0;

    virtual void drawLine(float x1, float y1, float x2, float y2) = 0;
    virtual void drawRectangle(float x, float y, float width, float height, float radiusX,
                               float radiusY) = 0;
    virtual void drawEllipse(float centreX, float centreY, float radiusX, float radiusY) = 0;
    virtual void drawPath(Core::SmartPtr<Path> path) = 0;
    virtual void setFont(Core::SmartPtr<Font> font) = 0;
    /// Shows `text` with its first glyph's origin at (x, y) and `spacing` more than its advance
    /// behind each glyph. `flags` and `flag` are for back ends that tell directions apart. A
    /// `PSDocument` heeds the spacing only if it kerns, and fills text in embedded fonts as
    /// outlines, which programs cannot read again.
    virtual void drawText(const Core::String& text, int flags, float x, float y, float spacing,
                          bool flag) = 0;
    /// Fills the box with the image. A `PSDocument` draws it at its pixel size in user units, at
    /// (x, y) cut to integers: there the transform gives the size.
    virtual void drawImage(Core::SmartPtr<Image> image, float x, float y, float width, float height,
                           int selector) = 0;
    virtual void draw3DObject(Core::SmartPtr<Object3D> object, float x, float y, float width,
                              float height) = 0;

    /// A context for drawing that is recorded once and placed many times.
    virtual Core::SmartPtr<IOutputContext> createDocumentFragment(float width, float height) = 0;
    virtual void drawDocumentFragment(Core::SmartPtr<IOutputContext> fragment) = 0;
    /// Whether this context is a fragment that `context` has placed.
    [[nodiscard]] virtual bool isFragmentOf(Core::SmartPtr<IOutputContext> context) const = 0;
    /// A context for the tile of a `PatternBrush`.
    virtual Core::SmartPtr<IOutputContext> createPatternOutputContext(float width,
                                                                      float height) = 0;

    [[nodiscard]] virtual Core::SmartPtr<ResourceManager> getResourceManager() const = 0;
    virtual void setProperty(const Core::String& name, const Core::String& value) = 0;

protected:
    /// Called by every drawing operation where the clip would take effect.
    virtual void writeClip() = 0;
};

}  // namespace Drawing
