#pragma once

#include "Core/ByteArray.h"
#include "Core/Export.h"
#include "Core/String.h"

#include <string>
#include <string_view>

namespace Core {

/// Between UTF-16 text and bytes. The multibyte code page is UTF-8 whatever the locale of the
/// process, so a file never depends on where it was made.
class CORE_API Encoder {
public:
    /// The text as UTF-8 bytes; a lone surrogate becomes U+FFFD.
    static ByteArray convertStringToMultibyte(const String& text);
    /// The other way round; malformed bytes become U+FFFD each.
    static String convertMultibyteToString(std::string_view bytes);

    static std::string utf8FromUtf16(std::u16string_view units);
    static std::u16string utf16FromUtf8(std::string_view bytes);
};

}  // namespace Core
