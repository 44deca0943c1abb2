#include "Fonts/internal/WebFont.h"

#include "Fonts/FontException.h"
#include "Fonts/internal/BigEndian.h"
#include "Fonts/internal/FreeType.h"
#include "Fonts/internal/Sfnt.h"

#include FT_TRUETYPE_TABLES_H

#include <woff2/decode.h>

#include <string>
#include <string_view>

namespace Fonts {

namespace {

constexpr std::uint32_t kPacked = Sfnt::tag("wOFF");
constexpr std::uint32_t kPackedTighter = Sfnt::tag("wOF2");
/// Where both kinds tell how long the file in them is.
constexpr std::size_t kLengthOffset = 16;
constexpr std::uint32_t kLongest = 64 << 20;

[[noreturn]] void fail(const FontBytes& packed, const char* reason) {
    throw FontException(packed.name(), reason);
}

/// FreeType keeps the whole file, and gives it away as the table without a name.
Core::ByteArray unpack(const FontBytes& packed) {
    FT_Library opened = nullptr;
    if (FT_Init_FreeType(&opened) != 0)
        fail(packed, "cannot be unpacked: the font engine does not start");
    const FreeTypePtr<FT_Library> library(opened);
    FT_Face found = nullptr;
    const FT_Error error = FT_New_Memory_Face(
        opened, packed.span().data(), static_cast<FT_Long>(packed.span().size()), 0, &found);
    const FreeTypePtr<FT_Face> face(found);
    FT_ULong length = 0;
    if (error != 0 || FT_Load_Sfnt_Table(found, 0, 0, nullptr, &length) != 0 || length == 0 ||
        length > kLongest)
        fail(packed, "is a damaged web font");
    Core::ByteArray file(length);
    if (FT_Load_Sfnt_Table(found, 0, 0, file.data(), &length) != 0)
        fail(packed, "is a damaged web font");
    return file;
}

Core::ByteArray unpackTighter(const FontBytes& packed) {
    std::string file;
    woff2::WOFF2StringOut out(&file);
    out.SetMaxSize(kLongest);
    if (!woff2::ConvertWOFF2ToTTF(packed.span().data(), packed.span().size(), &out))
        fail(packed, "is a damaged web font");
    file.resize(out.Size());
    return Core::ByteArray(std::string_view(file));
}

}  // namespace

bool isWebFont(std::span<const std::uint8_t> bytes) {
    const std::uint32_t first = BigEndian::read32(bytes, 0);
    return first == kPacked || first == kPackedTighter;
}

FontBytes unpackWebFont(const FontBytes& packed) {
    if (BigEndian::read32(packed.span(), kLengthOffset) > kLongest)
        fail(packed, "is packed from more than 64 MB; use a smaller font");
    const bool isTighter = BigEndian::read32(packed.span(), 0) == kPackedTighter;
    return {isTighter ? unpackTighter(packed) : unpack(packed), packed.name()};
}

}  // namespace Fonts
