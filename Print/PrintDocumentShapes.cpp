// Shapes, pictures, forms and tiles, and the state that they are drawn in.

#include "Drawing/Image.h"
#include "Drawing/Path.h"
#include "PS/fonts/PSFontResource.h"
#include "Print/PrintDocument.h"
#include "Print/PrintException.h"
#include "Print/PrintForm.h"
#include "Print/internal/ContentWriter.h"

#include <utility>

namespace Drawing::Print {

using Core::SmartPtr;

Place PrintDocument::place() const {
    return {graphicsState->transform, contentWriter->clip()};
}

void PrintDocument::checkPage() const {
    if (!contentWriter->isForm() && !documentParts->isPageOpen)
        throw PrintException("something is drawn outside of a page; call startPage first");
}

/// The page's own flip stands at the top of each page, so a transform is written as it is.
void PrintDocument::setTransform(const Matrix& transform) {
    graphicsState->transform = transform;
}

void PrintDocument::setClip(const Core::Vector<SmartPtr<Path>>& paths) {
    std::vector<ClipPart> clip;
    for (const auto& path : paths) {
        if (!path)
            throw PrintException("a clip holds a path that is null");
        clip.push_back({path, nullptr, graphicsState->transform});
    }
    contentWriter->setClip(std::move(clip));
    graphicsState->clipPaths = paths;
}

void PrintDocument::drawLine(float x1, float y1, float x2, float y2) {
    checkPage();
    if (!graphicsState->hasStroke())
        return;
    Path line;
    line.moveTo(x1, y1);
    line.lineTo(x2, y2);
    contentWriter->drawPath(place(), line, nullptr, graphicsState->stroke.get());
}

void PrintDocument::drawRectangle(float x, float y, float width, float height, float radiusX,
                                  float radiusY) {
    checkPage();
    Brush* fill = graphicsState->fill.get();
    const Stroke* stroke = graphicsState->stroke.get();
    if (radiusX > 0 && radiusY > 0) {
        const auto outline = PathCommand::rectangle(x, y, width, height, radiusX, radiusY);
        contentWriter->drawPath(place(), *outline, fill, stroke);
        return;
    }
    const double left = x;
    const double top = y;
    contentWriter->drawRectangle(place(), {left, top, left + width, top + height}, fill, stroke);
}

void PrintDocument::drawEllipse(float centreX, float centreY, float radiusX, float radiusY) {
    checkPage();
    if (radiusX == 0 || radiusY == 0)
        return;
    contentWriter->drawEllipse(place(), {centreX, centreY}, radiusX, radiusY,
                               graphicsState->fill.get(), graphicsState->stroke.get());
}

void PrintDocument::drawPath(SmartPtr<Path> path) {
    checkPage();
    if (!path)
        throw PrintException("the path to be drawn is null");
    contentWriter->drawPath(place(), *path, graphicsState->fill.get(), graphicsState->stroke.get());
}

namespace {

Box boxOf(const Image& image, float x, float y, float width, float height) {
    const PixelSize size = image.getPixelSize();
    const double left = x;
    const double top = y;
    return {left, top, left + (width != 0 ? static_cast<double>(width) : size.width),
            top + (height != 0 ? static_cast<double>(height) : size.height)};
}

}  // namespace

/// On a page a picture stands inline unless it is used again, which nobody knows yet: its place is
/// marked. Recorded drawing always calls a definition.
void PrintDocument::drawImage(SmartPtr<Image> image, float x, float y, float width, float height,
                              int selector) {
    checkPage();
    if (!image)
        throw PrintException("the image to be drawn is null");
    const PictureStore::Id id = documentParts->pictures.add(image, selector);
    showPicture(id, *image, x, y, width, height, nullptr);
}

void PrintDocument::drawStencil(const SmartPtr<Image>& image, float x, float y, float width,
                                float height, int selector) {
    checkPage();
    if (!image)
        throw PrintException("the stencil to be painted through is null");
    Brush* fill = graphicsState->fill.get();
    if (!ContentWriter::paints(fill))
        return;
    const PictureStore::Id id = documentParts->pictures.addStencil(image, selector);
    showPicture(id, *image, x, y, width, height, fill);
}

void PrintDocument::showPicture(std::uint32_t id, const Image& image, float x, float y, float width,
                                float height, Brush* fill) {
    const bool isForm = contentWriter->isForm();
    documentParts->notePicture(id, isForm);
    contentWriter->drawBox(place(), boxOf(image, x, y, width, height), fill, [&](TextBuffer& out) {
        if (isForm)
            out << documentParts->pictures.callText(id) << '\n';
        else
            out << Marker::kByte << Marker::kPicture << std::to_string(id) << '\n';
    });
}

SmartPtr<IOutputContext> PrintDocument::createDocumentFragment(float width, float height) {
    return Core::makeObject<PrintForm>(*this, SizeF{width, height}, PrintForm::Kind::fragment);
}

SmartPtr<IOutputContext> PrintDocument::createPatternOutputContext(float width, float height) {
    if (!(width > 0 && height > 0))
        throw PrintException("a tile of " + std::to_string(width) + " by " +
                             std::to_string(height) + " cannot be; both must be above 0");
    return Core::makeObject<PrintForm>(*this, SizeF{width, height}, PrintForm::Kind::tile);
}

/// The id under which the fragment is known from now on.
std::uint32_t PrintDocument::beginPlacing(const SmartPtr<IOutputContext>& context) {
    checkPage();
    const auto form = context.dynamicCast<PrintForm>();
    if (!form || !form->belongsTo(*this))
        throw PrintException("what is to be placed is no fragment of this document");
    if (form.get() == this)
        throw PrintException("a fragment is to be placed in itself");
    contentWriter->flush();
    const FormStore::Id id = form->seal();
    documentParts->noteForm(id, contentWriter->isForm());
    return id;
}

void PrintDocument::drawDocumentFragment(SmartPtr<IOutputContext> context) {
    const std::uint32_t id = beginPlacing(context);
    contentWriter->drawForm(place(), documentParts->forms.shapeOf(id).bounds, [&](TextBuffer& out) {
        out << FormStore::nameOf(id) << " execform\n";
    });
}

void PrintDocument::drawDocumentFragments(const SmartPtr<IOutputContext>& context,
                                          std::span<const XPointF> places) {
    if (places.empty())
        return;
    const std::uint32_t id = beginPlacing(context);
    documentParts->usesPlaces = true;
    contentWriter->drawForms(place(), FormStore::nameOf(id),
                             documentParts->forms.shapeOf(id).bounds, places);
}

bool PrintDocument::isFragmentOf(SmartPtr<IOutputContext> /*context*/) const {
    return false;
}

}  // namespace Drawing::Print
