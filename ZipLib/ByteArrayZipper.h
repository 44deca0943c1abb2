#pragma once

#include "Core/ByteArray.h"
#include "ZipLib/Export.h"

namespace ZipLib {

/// Compresses image data.
class ZIPLIB_API ByteArrayZipper {
public:
    /// `data` as a zlib stream (RFC 1950), which PostScript's FlateDecode reads (PLRM 3.13.3).
    /// Empty data gives the stream of no bytes. Raises `Core::FormatException` for 4 GiB and more,
    /// which no interpreter takes as one image.
    static Core::ByteArray compress(const Core::ByteArray& data);
};

}  // namespace ZipLib
