#include "tests/psrender/Spots.h"

#include "Core/MemoryStream.h"
#include "Images/ImageStore.h"
#include "psrender/paint/Painter.h"
#include "psrender/raster/Module.h"
#include "psrender/svg/SvgReader.h"
#include "tests/support/Interpreter.h"

#include <gtest/gtest.h>

namespace psrender::tests {

namespace {

/// The tests do not lie beside the module.
const bool isModuleFound = (raster::lookInFolder(PSRENDER_MODULE_FOLDER), true);

}  // namespace

std::string printed(const scene::Page& page, const plan::PlanOptions& options) {
    EXPECT_TRUE(isModuleFound);
    Warnings warnings;
    const auto output = Core::makeObject<Core::IO::MemoryStream>();
    const auto document = Core::makeObject<Drawing::Print::PrintDocument>(output);
    document->startDocument();
    paint::Painter(*document).paintPage(plan::Planner(options).plan(page, warnings));
    document->endDocument();
    return std::string(output->view());
}

std::string script(const std::string& body, const plan::PlanOptions& options) {
    Warnings warnings;
    Images::ImageStore store(1'000'000);
    return printed(
        svg::readSvg("<svg xmlns='http://www.w3.org/2000/svg' width='100pt' height='100pt' "
                     "viewBox='0 0 100 100'>" +
                         body + "</svg>",
                     "test", warnings, {&store}),
        options);
}

void expectSpots(const std::string& body, std::initializer_list<Spot> spots) {
    constexpr int kScale = 4;
    const Interpretation seen = interpret(script(body), 72 * kScale);
    EXPECT_EQ("", seen.messages) << body;
    ASSERT_EQ(1U, seen.pages.size()) << body;
    for (const Spot& spot : spots) {
        const auto pixel =
            seen.pages[0].at(static_cast<int>(spot.x * kScale), static_cast<int>(spot.y * kScale));
        EXPECT_EQ(spot.inked, pixel[1] < 128) << body << " at " << spot.x << " " << spot.y;
    }
}

}  // namespace psrender::tests
