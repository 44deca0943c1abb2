// Pages and what the printer is asked for: DSC page comments and page device dictionaries
// (PLRM 6.1) in the script.

#include "Core/FixedFormat.h"
#include "Core/Log.h"
#include "Core/StringFormatStream.h"
#include "PS/PSDocument.h"

#include <utility>

namespace Drawing::PS {

using Core::StringFormatStream;
using Core::writeFixed;

namespace {

constexpr int kDuplexSizeChangeMessage = 41000;

}  // namespace

void PSDocument::startPage(const SizeF& size) {
    const bool sizeChanged = !graphicsState || graphicsState->pageSize != size;
    if (graphicsState) {
        graphicsState->pageSize = size;
        graphicsState->resetClip();
    } else {
        graphicsState = Core::makeObject<PSGraphicsState>(size);
    }
    graphicsState->fillRule = PSGraphicsState::kNonZero;
    ++pageIndex;
    writeFixed<"%%Page:{0} {0}\n">(*scriptStream, pageIndex + 1);
    if (sizeChanged)
        writePageSize();
    if (!pageDeviceFlag && sizeChanged && printingOptions.Duplex)
        Core::Log::warning(Core::String::formatS(kDuplexSizeChangeMessage));
    pageDeviceFlag = false;
}

/// The comment comes before the operator that shows the page; spoolers accept both orders.
void PSDocument::endPage() {
    writeFixed<"%%PageTrailer\nshp\n">(*scriptStream);
}

void PSDocument::showPage() {
    writeFixed<"shp\n">(*scriptStream);
}

void PSDocument::writePageSize() {
    writeFixed<"<</PageSize [{0} {1}]\n/ImagingBBox null\n>> setpagedevice\n">(
        *scriptStream, graphicsState->pageSize.width, graphicsState->pageSize.height);
}

void PSDocument::setPrintingOptions(PSPrintingOptions options) {
    printingOptions = std::move(options);
    pageDeviceFlag = true;
    writePrintingOptions();
}

void PSDocument::writePrintingOptions() {
    const PSPrintingOptions& options = printingOptions;
    const Core::String color = options.MediaColor.isEmpty() ? u"null" : options.MediaColor;
    writeLn(scriptStream,
            StringFormatStream(
                u"<</Duplex {0} \n/MediaPosition {1}\n/MediaColor {2}\n/NumCopies {3}\n/Jog {4}\n"
                u"/Tumble false/ImagingBBox null\n>> setpagedevice")
                << (options.Duplex ? u"true" : u"false") << options.MediaPosition << color
                << options.NumCopies << options.Jog);
}

}  // namespace Drawing::PS
