#pragma once

#include "Core/SmartPtr.h"
#include "Core/Stream.h"

#include <cstdint>

namespace Drawing::Print {

/// Keeps finished pieces of a document (picture data, recorded drawing) in a temporary file of its
/// own until the file is put together, so that they cost no memory and their sources may go.
class Spool {
public:
    /// Where a piece lies.
    struct Extent {
        std::int64_t begin = 0;
        std::int64_t length = 0;
    };

    /// The end of the spool, to append a piece to; opened when first asked for. What is written
    /// between `begin` and `end` is one piece.
    Core::IO::Stream& begin();
    [[nodiscard]] Extent end();

    void copyTo(Core::IO::Stream& output, const Extent& piece);

private:
    Core::SmartPtr<Core::IO::Stream> file_;
    std::int64_t begin_ = 0;  ///< behind a piece that was given up, too
};

}  // namespace Drawing::Print
