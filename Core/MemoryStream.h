#pragma once

#include "Core/Stream.h"

#include <vector>

namespace Core::IO {

/// A stream over a block of memory that it owns and that grows as needed.
class CORE_API MemoryStream : public Stream {
public:
    MemoryStream();
    ~MemoryStream() override;

    std::size_t read(ByteArray& into, std::size_t offset, std::size_t count) override;
    using Stream::write;
    void write(const ByteArray& from, std::size_t offset, std::size_t count) override;
    void seek(std::int64_t offset, SeekOrigin origin) override;
    std::int64_t length() override;

    /// A copy of all bytes, whatever the position.
    [[nodiscard]] ByteArray getBuffer() const;
    /// The bytes in place; valid until the stream is written to or goes.
    [[nodiscard]] std::string_view view() const;

protected:
    char* makeRoom(std::size_t count) override;

private:
    [[nodiscard]] std::size_t position() const;
    [[nodiscard]] std::size_t size() const;
    void moveTo(std::size_t position);

    std::vector<char> bytes_;  ///< its size is the room; what is written ends at `size()`
    std::size_t written_ = 0;  ///< end of what was written before the last move
};

}  // namespace Core::IO
