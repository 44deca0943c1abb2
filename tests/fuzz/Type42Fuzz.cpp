// Any bytes as a TrueType file: the converter reads nothing beyond them and writes no more than a
// small multiple.

#include "Core/MemoryStream.h"
#include "Core/SmartPtr.h"
#include "PS/fonts/TTFToType42.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto output = Core::makeObject<Core::IO::MemoryStream>();
    const Drawing::PS::TTFToType42 font(Core::ByteArray(data, size));
    font.writeGlyphData(*output, u"F1");
    // 65,536 'loca' entries of 4 bytes in hexadecimal, whatever the file, and every byte of it
    // once a table and once a glyph.
    if (output->view().size() > 600'000 + 30 * size)
        std::abort();
    return 0;
}
