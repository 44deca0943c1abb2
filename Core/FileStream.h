#pragma once

#include "Core/Stream.h"
#include "Core/String.h"

#include <optional>
#include <string>
#include <vector>

namespace Core::IO {

/// A buffered stream over a file. Every system call is checked; a failure raises `IOException`
/// with the file's name and the reason.
///
/// After a failed write every operation raises that failure again, but for reading nothing: what
/// was to be written is lost, and no file with a gap is to be taken for a whole one.
///
/// `close` tells whether all bytes reached the file. The destructor closes as well but cannot
/// raise: it reports a failure that nobody has seen through `Log::warning`.
class CORE_API FileStream : public Stream {
public:
    /// Opens `name`.
    /// `writable`: for reading and writing, created if it does not exist; else for reading.
    /// `truncate`: starts empty.
    /// `keep`: false makes a private scratch file that nobody else can open: it has mode 0600,
    /// no name as soon as it is open, and its space is free again when the stream goes or the
    /// process dies, however it dies. `name` then tells the folder; no file of that name may
    /// exist.
    FileStream(const String& name, bool writable, bool truncate, bool keep);
    /// Over a descriptor that stays the caller's: it is flushed but never closed. `name` is for
    /// messages.
    FileStream(int descriptor, const String& name);
    ~FileStream() override;

    std::size_t read(ByteArray& into, std::size_t offset, std::size_t count) override;
    using Stream::write;
    void write(const ByteArray& from, std::size_t offset, std::size_t count) override;
    void seek(std::int64_t offset, SeekOrigin origin) override;
    std::int64_t length() override;
    void flush() override;
    /// Flushes and closes; nothing may be read or written afterwards. A second call does nothing
    /// but raise a failure again.
    void close();

protected:
    char* makeRoom(std::size_t count) override;

private:
    struct Failure {
        const char* action;
        int error;  ///< errno
    };

    [[noreturn]] void fail(const char* action) const;
    [[noreturn]] void failForGood(const char* action);
    void requireWhole() const;
    bool release();
    void fillBuffer();
    void dropReadAhead();
    void writeAll(const char* bytes, std::size_t count);

    std::string name_;
    int descriptor_ = -1;
    bool owned_ = true;
    std::optional<Failure> failure_;  ///< bytes were lost
    std::vector<char> buffer_;        ///< of bytes to write, or of bytes read ahead, never both
    std::size_t readNext_ = 0;        ///< the next byte to hand out of the bytes read ahead
    std::size_t readEnd_ = 0;         ///< their end; equal to `readNext_` if there are none
};

}  // namespace Core::IO
