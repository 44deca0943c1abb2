#pragma once

#include "Core/internal/Descriptor.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace Images {

/// Reads a part of an open file from its beginning, whoever else reads it.
class ByteReader {
public:
    ByteReader(std::shared_ptr<const Core::IO::Descriptor> file, std::uint64_t begin,
               std::uint64_t end)
        : file_(std::move(file)), next_(begin), end_(end) {}

    /// Up to `size` bytes, fewer only at the end. Throws `ImageLost` if the file cannot be read.
    std::size_t read(std::uint8_t* bytes, std::size_t size);

private:
    std::shared_ptr<const Core::IO::Descriptor> file_;
    std::uint64_t next_;
    std::uint64_t end_;
};

/// Where the bytes of a PNG or JPEG file are: in a file, or in a `Spool`. Costs next to no memory
/// and no open file.
class ImageBytes {
public:
    /// Throws `ImageError` if `path` is no regular file that may be read, and `ImageLost`.
    static ImageBytes inFile(const std::string& path);

    /// From the first byte. Throws `ImageError` if the file is no longer there, and `ImageLost`.
    [[nodiscard]] ByteReader open() const;
    /// Tells apart what is in different places or has been written at different times.
    [[nodiscard]] const std::string& identity() const { return identity_; }

private:
    friend class Spool;

    std::string path_;
    std::shared_ptr<const Core::IO::Descriptor> spool_;  ///< null for what is in a file of its own
    std::uint64_t begin_ = 0;
    std::uint64_t end_ = 0;
    std::string identity_;
};

/// Keeps images that came without a file in a temporary one that has no name.
class Spool {
public:
    /// Throws `ImageLost` if the temporary file cannot be written.
    ImageBytes add(std::string_view bytes);

private:
    std::shared_ptr<const Core::IO::Descriptor> file_;
    std::uint64_t end_ = 0;
};

}  // namespace Images
