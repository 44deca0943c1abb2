// The document as an object: how it is made, what it is told about itself, and its pages.

#include "Print/PrintDocument.h"

#include "Core/FixedFormat.h"
#include "Core/MemoryStream.h"
#include "PS/fonts/PSFontResource.h"
#include "Print/PrintException.h"
#include "Print/internal/ContentWriter.h"
#include "Print/internal/PrintingText.h"

#include <array>
#include <cmath>
#include <utility>

namespace Drawing::Print {

using Core::SmartPtr;

namespace {

PrintSettings withKerning(bool kernText) {
    PrintSettings settings;
    settings.kerning = kernText;
    return settings;
}

constexpr std::array kProperties{"title", "author", "subject", "keywords", "creator"};

}  // namespace

PrintDocument::PrintDocument(const SmartPtr<Core::IO::Stream>& output,
                             const PrintSettings& settings)
    : PSDocument(output.get(), settings.kerning),
      documentParts(Core::makeObject<DocumentParts>(settings)),
      contentWriter(Core::makeObject<ContentWriter>(scriptStream, documentParts,
                                                    settings.form == FileForm::epsInk
                                                        ? ContentWriter::Kind::measuredPage
                                                        : ContentWriter::Kind::page)) {
    graphicsState = Core::makeObject<PS::PSGraphicsState>(SizeF{});
    graphicsState->clipPaths.clear();
    languageLevel = 3;
}

PrintDocument::PrintDocument(const SmartPtr<Core::IO::Stream>& output, bool kernText)
    : PrintDocument(output, withKerning(kernText)) {}

PrintDocument::PrintDocument(const PrintDocument& parent, SizeF size)
    : PSDocument(Core::makeObject<Core::IO::MemoryStream>().get(), size, parent.kerning),
      documentParts(parent.documentParts),
      contentWriter(
          Core::makeObject<ContentWriter>(scriptStream, documentParts, ContentWriter::Kind::form)) {
    graphicsState->clipPaths.clear();
    const double width = size.width;
    const double height = size.height;
    contentWriter->begin({0, 0, width, height});
}

PrintDocument::PrintDocument(const PrintDocument& other) = default;
PrintDocument& PrintDocument::operator=(const PrintDocument& other) = default;
PrintDocument::~PrintDocument() = default;

void PrintDocument::setProperty(const Core::String& name, const Core::String& value) {
    for (const char* known : kProperties)
        if (name.equalsNoCase(known))
            documentParts->properties[known] = value;
}

void PrintDocument::startPage(const SizeF& size) {
    if (documentParts->isPageOpen)
        throw PrintException("a page begins before the one before it has ended; call endPage");
    if (!(size.width > 0 && size.height > 0 && std::isfinite(size.width) &&
          std::isfinite(size.height)))
        throw PrintException("a page of " + std::to_string(size.width) + " by " +
                             std::to_string(size.height) +
                             " points cannot be; both must be above 0");
    if (documentParts->isEps() && documentParts->pageCount > 0)
        throw PrintException("an Encapsulated PostScript file has one page only");
    documentParts->isPageOpen = true;
    documentParts->isUnfinished = true;
    documentParts->page = documentParts->pageCount++;
    pageIndex = static_cast<std::int32_t>(documentParts->page);
    SizeF& largest = documentParts->largestPage;
    largest = {std::max(largest.width, size.width), std::max(largest.height, size.height)};
    graphicsState->pageSize = size;
    graphicsState->clipPaths.clear();
    contentWriter->setClip({});
    const double width = size.width;
    const double height = size.height;
    contentWriter->begin({0, 0, width, height});
    writePageBegin(size);
}

void PrintDocument::endPage() {
    if (!documentParts->isPageOpen)
        throw PrintException("a page ends that was not begun; call startPage first");
    contentWriter->end();
    Core::writeFixed<"ep\n%%PageTrailer\n">(*scriptStream);
    documentParts->isPageOpen = false;
}

/// The set-up of the page is complete only when all uses of resources are known, so its place is
/// marked.
void PrintDocument::writePageBegin(const SizeF& size) {
    TextBuffer& out = contentWriter->text();
    out << "%%Page: " << std::to_string(documentParts->pageCount) << ' '
        << std::to_string(documentParts->pageCount);
    out << "\n%%PageBoundingBox: 0 0";
    out.number(std::ceil(size.width));
    out.number(std::ceil(size.height));
    out << "\n%%BeginPageSetup\n";
    out << std::exchange(documentParts->pageRequest, {});
    if (!documentParts->isEps()) {
        out.number(size.width);
        out.number(size.height);
        out << " ps\n";
    }
    out.number(size.height);
    out << " bp\n" << Marker::kByte << Marker::kPageSetup;
    out << std::to_string(documentParts->page);
    out << "\n%%EndPageSetup\n";
}

void PrintDocument::requestPrinting(const PrintingRequest& request) {
    if (documentParts->pageCount == 0)
        documentParts->setupRequest = printingText(request);
    else
        documentParts->pageRequest = printingText(request);
}

void PrintDocument::setPrintingOptions(const PS::PSPrintingOptions& options) {
    const PS::PSPrintingOptions usual;
    PrintingRequest request;
    if (options.Duplex)
        request.duplex = true;
    if (options.NumCopies != usual.NumCopies)
        request.copies = options.NumCopies;
    if (options.MediaPosition != usual.MediaPosition)
        request.mediaPosition = options.MediaPosition;
    if (options.Jog != usual.Jog)
        request.jog = options.Jog;
    // Written as it stands by a PSDocument, with its parentheses.
    const std::string color = options.MediaColor.toUtf8();
    if (color.size() > 2 && color.front() == '(' && color.back() == ')')
        request.mediaColor = Core::String(color.substr(1, color.size() - 2));
    requestPrinting(request);
}

}  // namespace Drawing::Print
