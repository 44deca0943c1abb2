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
///
/// A stream that failed to write stays failed: what follows in it would follow a gap. Every later
/// operation raises, too.
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
    ///
    /// Where the room begins at the very address at which the last commit ended, the bytes of that
    /// commit still stand in front of it and may be read, and so may those of the commit before if
    /// its end was where that one began, and so on. A writer may copy text that it wrote before.
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
    /// buffer and tells the new room by `setRoom`. The room must not begin where the last commit
    /// ended unless the committed bytes stand in front of it.
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
    /// What was passed on last. Kept until new scratch is made, which therefore lies elsewhere.
    std::unique_ptr<char[]> passedOn_;
    bool lost_ = false;  ///< passing on failed
};

}  // namespace Core::IO
