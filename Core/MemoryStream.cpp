#include "Core/MemoryStream.h"

#include "Core/Exception.h"

#include <algorithm>
#include <cerrno>

namespace Core::IO {

MemoryStream::MemoryStream() = default;
MemoryStream::~MemoryStream() = default;

std::size_t MemoryStream::position() const {
    return room() ? static_cast<std::size_t>(room() - bytes_.data()) : 0;
}

std::size_t MemoryStream::size() const {
    return std::max(written_, position());
}

void MemoryStream::moveTo(std::size_t position) {
    setRoom(bytes_.data() + position, bytes_.data() + bytes_.size());
}

char* MemoryStream::makeRoom(std::size_t count) {
    const std::size_t at = position();
    constexpr std::size_t kFirstRoom = 256;
    bytes_.resize(std::max({kFirstRoom, bytes_.size() * 2, at + count}));
    moveTo(at);
    return room();
}

std::size_t MemoryStream::read(ByteArray& into, std::size_t offset, std::size_t count) {
    const std::size_t at = position();
    const std::size_t available = std::min({count, size() - at, into.size() - offset});
    if (available == 0)
        return 0;
    written_ = size();
    std::copy_n(bytes_.data() + at, available, reinterpret_cast<char*>(into.data()) + offset);
    moveTo(at + available);
    return available;
}

void MemoryStream::write(const ByteArray& from, std::size_t offset, std::size_t count) {
    write(from.view().substr(offset, count));
}

void MemoryStream::seek(std::int64_t offset, SeekOrigin origin) {
    written_ = size();
    const std::int64_t base = origin == SeekOrigin::begin ? 0
                              : origin == SeekOrigin::current
                                  ? static_cast<std::int64_t>(position())
                                  : static_cast<std::int64_t>(written_);
    const std::int64_t target = base + offset;
    if (target < 0 || target > static_cast<std::int64_t>(written_))
        throw IOException("cannot seek outside of", "the memory stream", EINVAL);
    moveTo(static_cast<std::size_t>(target));
}

std::int64_t MemoryStream::length() {
    return static_cast<std::int64_t>(size());
}

ByteArray MemoryStream::getBuffer() const {
    return ByteArray(view());
}

std::string_view MemoryStream::view() const {
    return {bytes_.data(), size()};
}

}  // namespace Core::IO
