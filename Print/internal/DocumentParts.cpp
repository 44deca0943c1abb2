#include "Print/internal/DocumentParts.h"

#include "Core/Log.h"

#include <exception>

namespace Drawing::Print {

DocumentParts::DocumentParts(const PrintSettings& documentSettings)
    : settings(documentSettings),
      pictures(spool, documentSettings.colors),
      forms(spool),
      fonts({documentSettings.embedStandardFonts, documentSettings.keepHints}) {}

/// A document that is given up because of a failure needs no second message.
DocumentParts::~DocumentParts() {
    if (!isUnfinished || std::uncaught_exceptions() != 0)
        return;
    try {
        Core::Log::warning(
            u"a print document was let go without endDocument, so its pages are in no file");
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
