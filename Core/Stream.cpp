#include "Core/Stream.h"

#include "Core/Exception.h"

#include <algorithm>
#include <utility>

namespace Core::IO {

Stream::Stream() = default;
Stream::~Stream() = default;

void Stream::flush() {}

void Stream::write(std::string_view text) {
    char* out = reserve(text.size());
    commit(std::copy(text.begin(), text.end(), out));
}

/// One byte more than asked for: not even a full block then ends where another may begin.
char* Stream::makeRoom(std::size_t count) {
    if (lost_)
        throw IOException("cannot write any more to", "a stream that failed to write", 0);
    scratch_ = std::make_unique_for_overwrite<char[]>(count + 1);
    setRoom(scratch_.get(), scratch_.get() + count);
    return room_;
}

/// The room goes before the bytes are passed on, so that a failing `write` cannot leave them to be
/// written twice.
void Stream::passScratchOn() {
    const auto count = static_cast<std::size_t>(room_ - scratch_.get());
    passedOn_ = std::move(scratch_);
    setRoom(nullptr, nullptr);
    lost_ = true;
    write(ByteArray(passedOn_.get(), count), 0, count);
    lost_ = false;
}

}  // namespace Core::IO
