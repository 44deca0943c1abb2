#include "Print/internal/DocumentParts.h"

#include "Core/Log.h"

namespace Drawing::Print {

DocumentParts::DocumentParts(const PrintSettings& documentSettings)
    : settings(documentSettings),
      pictures(spool, documentSettings.colors),
      forms(spool),
      fonts({documentSettings.embedStandardFonts, documentSettings.keepHints}) {}

DocumentParts::~DocumentParts() {
    if (isEnded || pageCount == 0)
        return;
    try {
        Core::Log::warning(u"A document's pages were drawn and are lost; call endDocument.");
    } catch (...) {  // NOLINT(bugprone-empty-catch): a destructor has nobody to tell
    }
}

void DocumentParts::notePicture(PictureStore::Id id, bool isNested) {
    if (isNested)
        pictures.noteNestedUse(id);
    else
        pictures.noteUse(id, page);
}

void DocumentParts::noteForm(FormStore::Id id, bool isNested) {
    if (isNested)
        forms.noteNestedUse(id);
    else
        forms.noteUse(id, page);
}

}  // namespace Drawing::Print
