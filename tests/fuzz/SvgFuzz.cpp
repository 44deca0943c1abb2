// Any bytes as an SVG drawing: read and planned, or refused with a sentence.

#include "psrender/plan/Planner.h"
#include "psrender/svg/SvgReader.h"

#include <cstdint>
#include <tuple>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    psrender::Warnings warnings;
    try {
        const std::string_view text(reinterpret_cast<const char*>(data), size);
        std::ignore = psrender::plan::Planner().plan(psrender::svg::readSvg(text, "fuzz", warnings),
                                                     warnings);
    } catch (const psrender::InputError&) {
        return 0;
    }
    return 0;
}
