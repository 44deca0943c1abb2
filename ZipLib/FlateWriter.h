#pragma once

#include "Core/Stream.h"
#include "ZipLib/Export.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace ZipLib {

/// Compresses data that comes in pieces, such as the rows of a picture, as one zlib stream
/// (RFC 1950) of any length in half a megabyte of memory. Each stretch of data is compressed in
/// the way that suits it: with matches, or, where there is nothing to match, as in the differences
/// between the pixels of a photograph, by runs and codes alone, which is smaller and faster.
class ZIPLIB_API FlateWriter {
public:
    /// `output` must outlive the writer.
    explicit FlateWriter(Core::IO::Stream& output);
    FlateWriter(const FlateWriter&) = delete;
    FlateWriter& operator=(const FlateWriter&) = delete;
    ~FlateWriter();

    void write(std::span<const std::uint8_t> bytes);
    /// Writes what is held back and the end of the stream. Must be called once, last.
    void finish();

private:
    struct Deflater;

    void compressBlock(bool isLast);

    std::vector<std::uint8_t> block_;
    std::unique_ptr<Deflater> deflater_;
};

}  // namespace ZipLib
