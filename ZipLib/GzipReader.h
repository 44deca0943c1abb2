#pragma once

#include "ZipLib/Export.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace ZipLib {

/// Unpacks what gzip writes (RFC 1952), as in .svgz files.
class ZIPLIB_API GzipReader {
public:
    /// Whether the bytes begin like a gzip file.
    static bool isGzip(std::string_view bytes);

    /// The content of all members, one behind the other. Raises `Core::FormatException` if the
    /// bytes are damaged or cut off, or if the content has more than `most` bytes.
    static std::string unpack(std::string_view bytes, std::size_t most);
};

}  // namespace ZipLib
