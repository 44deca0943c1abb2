// Any bytes as a Type 1 program: its segments are walked to the end or refused.

#include "Core/Exception.h"
#include "Core/MemoryStream.h"
#include "Core/SmartPtr.h"
#include "PS/internal/Type1Program.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto output = Core::makeObject<Core::IO::MemoryStream>();
    try {
        Drawing::PS::writeType1Program(*output, Core::ByteArray(data, size), u"F1", {u"A", u"B"});
    } catch (const Core::UnreacheableCodeException&) {
        return 0;
    }
    if (output->view().size() > 100 + 100 * size)
        std::abort();
    return 0;
}
