#include "Core/FileStream.h"

#include "Core/Exception.h"
#include "Core/Log.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace Core::IO {

namespace {

constexpr std::size_t kBufferSize = std::size_t{64} * 1024;
constexpr mode_t kSharedMode = 0666;  // less the process's umask
constexpr mode_t kPrivateMode = 0600;

std::string folderOf(const std::string& name) {
    const std::size_t slash = name.rfind('/');
    return slash == std::string::npos ? "." : name.substr(0, slash + 1);
}

/// A file without a name from the start, where the file system has such; else one that loses its
/// name at once.
int openScratch(const std::string& name) {
    const int nameless =
        ::open(folderOf(name).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, kPrivateMode);
    if (nameless >= 0 || (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL))
        return nameless;
    const int named = ::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kPrivateMode);
    if (named >= 0)
        ::unlink(name.c_str());
    return named;
}

int openFile(const std::string& name, bool writable, bool truncate, bool keep) {
    if (!keep)
        return openScratch(name);
    const int access = writable ? O_RDWR | O_CREAT : O_RDONLY;
    return ::open(name.c_str(), access | (truncate ? O_TRUNC : 0) | O_CLOEXEC, kSharedMode);
}

int whence(SeekOrigin origin) {
    switch (origin) {
        case SeekOrigin::begin:
            return SEEK_SET;
        case SeekOrigin::current:
            return SEEK_CUR;
        case SeekOrigin::end:
            break;
    }
    return SEEK_END;
}

}  // namespace

FileStream::FileStream(const String& name, bool writable, bool truncate, bool keep)
    : name_(name.toUtf8()), descriptor_(openFile(name_, writable, truncate, keep)) {
    if (descriptor_ < 0)
        fail("cannot open");
}

FileStream::FileStream(int descriptor, const String& name)
    : name_(name.toUtf8()), descriptor_(descriptor), owned_(false) {}

/// A failure that an operation raised has been seen.
FileStream::~FileStream() {
    if (failure_) {
        release();
        return;
    }
    try {
        close();
    } catch (const IOException& failure) {
        Log::warning(failure.getMessage());
    }
}

void FileStream::fail(const char* action) const {
    throw IOException(action, name_, errno);
}

void FileStream::failForGood(const char* action) {
    failure_ = {action, errno};
    throw IOException(action, name_, failure_->error);
}

void FileStream::requireWhole() const {
    if (failure_)
        throw IOException(failure_->action, name_, failure_->error);
}

/// False if the system reports that bytes were lost.
bool FileStream::release() {
    const int descriptor = std::exchange(descriptor_, -1);
    return !owned_ || descriptor < 0 || ::close(descriptor) == 0;
}

void FileStream::close() {
    try {
        flush();
    } catch (...) {
        release();
        throw;
    }
    if (!release())
        failForGood("cannot close");
}

void FileStream::writeAll(const char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t written = ::write(descriptor_, bytes, count);
        if (written < 0 && errno != EINTR)
            failForGood("cannot write to");
        const std::size_t done = written < 0 ? 0 : static_cast<std::size_t>(written);
        bytes += done;
        count -= done;
    }
}

/// The buffer is given up before it is written: after a failure the same bytes are not written
/// again by the destructor.
void FileStream::flush() {
    requireWhole();
    if (!room())
        return;
    const auto count = static_cast<std::size_t>(room() - buffer_.data());
    setRoom(nullptr, nullptr);
    writeAll(buffer_.data(), count);
}

char* FileStream::makeRoom(std::size_t count) {
    flush();
    dropReadAhead();
    buffer_.resize(std::max({kBufferSize, buffer_.size(), count}));
    setRoom(buffer_.data(), buffer_.data() + buffer_.size());
    return room();
}

void FileStream::write(const ByteArray& from, std::size_t offset, std::size_t count) {
    const std::string_view bytes = from.view().substr(offset, count);
    if (count < kBufferSize) {
        write(bytes);
        return;
    }
    flush();
    dropReadAhead();
    writeAll(bytes.data(), bytes.size());
}

void FileStream::dropReadAhead() {
    if (readNext_ == readEnd_)
        return;
    const auto ahead = static_cast<off_t>(readEnd_ - readNext_);
    readNext_ = readEnd_ = 0;
    if (::lseek(descriptor_, -ahead, SEEK_CUR) < 0)
        failForGood("cannot seek in");
}

void FileStream::fillBuffer() {
    flush();
    buffer_.resize(std::max(kBufferSize, buffer_.size()));
    ssize_t got = -1;
    do
        got = ::read(descriptor_, buffer_.data(), buffer_.size());
    while (got < 0 && errno == EINTR);
    if (got < 0)
        fail("cannot read");
    readNext_ = 0;
    readEnd_ = static_cast<std::size_t>(got);
}

std::size_t FileStream::read(ByteArray& into, std::size_t offset, std::size_t count) {
    count = std::min(count, into.size() - offset);
    if (count == 0)
        return 0;
    if (readNext_ == readEnd_)
        fillBuffer();
    const std::size_t available = std::min(count, readEnd_ - readNext_);
    std::copy_n(buffer_.data() + readNext_, available,
                reinterpret_cast<char*>(into.data()) + offset);
    readNext_ += available;
    return available;
}

void FileStream::seek(std::int64_t offset, SeekOrigin origin) {
    flush();
    dropReadAhead();
    if (::lseek(descriptor_, offset, whence(origin)) < 0)
        fail("cannot seek in");
}

std::int64_t FileStream::length() {
    flush();
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0)
        fail("cannot examine");
    return status.st_size;
}

}  // namespace Core::IO
