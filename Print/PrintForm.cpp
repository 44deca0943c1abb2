#include "Print/PrintForm.h"

#include "Core/MemoryStream.h"
#include "PS/fonts/PSFontResource.h"
#include "Print/PrintException.h"
#include "Print/internal/ContentWriter.h"

namespace Drawing::Print {

PrintForm::PrintForm(const PrintDocument& parent, SizeF formSize, Kind formKind)
    : PrintDocument(parent, formSize), size(formSize), kind(formKind), boundsSize(formSize) {}

PrintForm::~PrintForm() = default;

OutputType PrintForm::getType() const {
    return OutputType::postScriptFragment;
}

void PrintForm::startPage(const SizeF& /*pageSize*/) {
    throw PrintException("a fragment or tile has no pages; draw in it at once");
}

void PrintForm::endPage() {
    throw PrintException("a fragment or tile has no pages; there is nothing to end");
}

void PrintForm::endDocument() {
    throw PrintException("a fragment or tile is no document; end the document that made it");
}

void PrintForm::setBounds(float x, float y, float width, float height) {
    boundsX = x;
    boundsY = y;
    boundsSize = {width, height};
}

/// The record is all that is left: the drawing goes to the spool, and its memory is free.
std::uint32_t PrintForm::seal() {
    if (sealedId)
        return *sealedId;
    content()->end();
    FormStore::Shape shape;
    shape.isTile = kind == Kind::tile;
    if (shape.isTile) {
        const double left = boundsX;
        const double top = boundsY;
        shape.bounds = {left, top, left + boundsSize.width, top + boundsSize.height};
        shape.stepX = size.width;
        shape.stepY = size.height;
    } else {
        shape.bounds = content()->ink();
    }
    auto& recorded = static_cast<Core::IO::MemoryStream&>(*scriptStream);
    sealedId = parts()->forms.add(recorded.view(), shape);
    scriptStream = nullptr;
    content()->close();
    return *sealedId;
}

bool PrintForm::belongsTo(const PrintDocument& document) const {
    return &*document.parts() == &*parts();
}

bool PrintForm::isFragmentOf(Core::SmartPtr<IOutputContext> context) const {
    const auto document = context.dynamicCast<PrintDocument>();
    return sealedId && document && belongsTo(*document);
}

}  // namespace Drawing::Print
