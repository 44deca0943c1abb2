#include "Core/Stream.h"

#include <algorithm>

namespace Core::IO {

Stream::Stream() = default;
Stream::~Stream() = default;

void Stream::flush() {}

void Stream::write(std::string_view text) {
    char* out = reserve(text.size());
    commit(std::copy(text.begin(), text.end(), out));
}

char* Stream::makeRoom(std::size_t count) {
    scratch_ = std::make_unique_for_overwrite<char[]>(count);
    setRoom(scratch_.get(), scratch_.get() + count);
    return room_;
}

/// The scratch goes before the bytes are passed on, so that a failing `write` cannot leave them
/// to be written twice.
void Stream::passScratchOn() {
    const ByteArray bytes(scratch_.get(), static_cast<std::size_t>(room_ - scratch_.get()));
    scratch_.reset();
    setRoom(nullptr, nullptr);
    write(bytes, 0, bytes.size());
}

}  // namespace Core::IO
