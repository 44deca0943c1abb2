#pragma once

#include "Core/ByteArray.h"
#include "Core/Export.h"
#include "Core/Object.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace Core::IO {

/// Where a seek counts from.
enum class SeekOrigin { begin, current, end };

/// A sequence of bytes with one position for reading and writing.
///
/// Small pieces are best written through `reserve` and `commit`, which format straight into the
/// stream's own buffer. A subclass without a buffer need not care: it overrides the five
/// operations, and reserved room is passed on to its `write` at every commit. Used by one thread
/// at a time; failures raise `IOException`.
class CORE_API Stream : public Object {
public:
    Stream();
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;
    ~Stream() override;

    /// Reads up to `count` bytes to `into[offset]`; the number read, 0 at the end.
    virtual std::size_t read(ByteArray& into, std::size_t offset, std::size_t count) = 0;
    /// Writes `count` bytes from `from[offset]`, all of them or an exception.
    virtual void write(const ByteArray& from, std::size_t offset, std::size_t count) = 0;
    virtual void seek(std::int64_t offset, SeekOrigin origin) = 0;
    /// Bytes from the first to the last, whatever the position.
    virtual std::int64_t length() = 0;
    /// Hands on what a buffer holds back.
    virtual void flush();

    /// Writes `text` at the position.
    void write(std::string_view text);

    /// Room for `count` bytes at the position, to be filled and committed before any other
    /// operation. What is not committed was never written.
    char* reserve(std::size_t count) {
        return static_cast<std::size_t>(roomEnd_ - room_) >= count ? room_ : makeRoom(count);
    }
    /// Makes the reserved bytes up to `end` part of the stream.
    void commit(char* end) {
        room_ = end;
        if (scratch_) [[unlikely]]
            passScratchOn();
    }

protected:
    /// Called when fewer than `count` bytes are free: a buffered stream empties or grows its
    /// buffer and tells the new room by `setRoom`.
    virtual char* makeRoom(std::size_t count);

    void setRoom(char* begin, char* end) {
        room_ = begin;
        roomEnd_ = end;
    }
    [[nodiscard]] char* room() const { return room_; }
    [[nodiscard]] char* roomEnd() const { return roomEnd_; }

private:
    void passScratchOn();

    char* room_ = nullptr;
    char* roomEnd_ = nullptr;
    std::unique_ptr<char[]> scratch_;
};

}  // namespace Core::IO
