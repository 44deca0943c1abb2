// The end of a document.

#include "PS/fonts/PSFontResource.h"
#include "Print/PrintDocument.h"
#include "Print/PrintException.h"
#include "Print/internal/Assembly.h"
#include "Print/internal/ContentWriter.h"

namespace Drawing::Print {

/// Everything that can be wrong is found before the first byte goes out.
void PrintDocument::endDocument() {
    if (documentParts->isPageOpen)
        throw PrintException("the document ends within a page; call endPage first");
    if (documentParts->isEps() && documentParts->pageCount != 1)
        throw PrintException("an Encapsulated PostScript file has exactly one page, not none");
    if (!outputStream)
        throw PrintException("the document has no output stream; call setOutputStream");
    Assembly(*documentParts, *outputStream)
        .write(*scriptStream, documentParts->pageCount, contentWriter->ink());
    documentParts->isUnfinished = false;
}

}  // namespace Drawing::Print
