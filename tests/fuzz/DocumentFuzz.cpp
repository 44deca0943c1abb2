// Any bytes as an SVG drawing, all the way to a document: whole, or refused with a sentence.

#include "Core/MemoryStream.h"
#include "Print/PrintDocument.h"
#include "psrender/job/PageFrame.h"
#include "psrender/paint/Painter.h"
#include "psrender/plan/Planner.h"
#include "psrender/scene/UnseenText.h"
#include "psrender/svg/SvgReader.h"

#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

namespace {

std::string_view documentOf(const psrender::scene::Page& page, Core::IO::MemoryStream& output) {
    const auto document =
        Core::makeObject<Drawing::Print::PrintDocument>(Core::SmartPtr<Core::IO::Stream>(&output));
    document->startDocument();
    psrender::paint::Painter(*document).paintPage(page);
    document->endDocument();
    return output.view();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    psrender::Warnings warnings;
    const psrender::svg::ReadingLimits limits{.shapes = 10'000};
    try {
        const std::string_view text(reinterpret_cast<const char*>(data), size);
        auto page = psrender::svg::readSvg(text, "fuzz", warnings, {}, limits);
        psrender::frame(page, {.paper = psrender::PaperSize{300, 300}, .fit = true}, warnings);
        psrender::scene::dropUnseenText(page, warnings);
        const auto output = Core::makeObject<Core::IO::MemoryStream>();
        const std::string_view document =
            documentOf(psrender::plan::Planner().plan(std::move(page), warnings), *output);
        if (!document.starts_with("%!PS-Adobe-3.0") ||
            document.find("%%EOF") == std::string_view::npos)
            std::abort();
    } catch (const psrender::InputError&) {
        return 0;
    }
    return 0;
}
