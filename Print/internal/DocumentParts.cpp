#include "Print/internal/DocumentParts.h"

namespace Drawing::Print {

DocumentParts::DocumentParts(const PrintSettings& documentSettings)
    : settings(documentSettings),
      pictures(spool, documentSettings.colors),
      forms(spool),
      fonts({documentSettings.embedStandardFonts, documentSettings.keepHints}) {}

DocumentParts::~DocumentParts() = default;

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
