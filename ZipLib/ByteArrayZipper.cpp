#include "ZipLib/ByteArrayZipper.h"

#include "Core/Exception.h"

#include <zlib.h>

#include <cstdint>
#include <limits>
#include <new>

namespace ZipLib {

namespace {

/// Higher levels take up to five times as long for at most a few per cent.
constexpr int kLevel = 6;

}  // namespace

Core::ByteArray ByteArrayZipper::compress(const Core::ByteArray& data) {
    if (data.size() > std::numeric_limits<std::uint32_t>::max())
        throw Core::FormatException("ByteArrayZipper", 1,
                                    "more than 4 GiB cannot be compressed in one piece; cut the "
                                    "image into strips");
    uLongf size = compressBound(data.size());
    Core::ByteArray compressed(size);
    if (compress2(compressed.data(), &size, data.data(), data.size(), kLevel) != Z_OK)
        throw std::bad_alloc();
    compressed.resize(size);
    return compressed;
}

}  // namespace ZipLib
