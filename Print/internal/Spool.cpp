#include "Print/internal/Spool.h"

#include "Core/ByteArray.h"
#include "Core/FileStream.h"
#include "Core/FileSystem.h"

#include <algorithm>
#include <cstddef>

namespace Drawing::Print {

Core::IO::Stream& Spool::begin() {
    if (!file_) {
        const Core::String name = Core::IO::FileSystem::getTempFileName(Core::String());
        file_ = Core::makeObject<Core::IO::FileStream>(name, true, true, false);
    }
    begin_ = file_->length();
    file_->seek(begin_, Core::IO::SeekOrigin::begin);
    return *file_;
}

Spool::Extent Spool::end() {
    return {begin_, file_->length() - begin_};
}

void Spool::copyTo(Core::IO::Stream& output, const Extent& piece) {
    constexpr std::int64_t kChunk = std::int64_t{1} << 16;
    Core::ByteArray chunk(static_cast<std::size_t>(std::min(kChunk, piece.length)));
    file_->seek(piece.begin, Core::IO::SeekOrigin::begin);
    for (std::int64_t left = piece.length; left > 0;) {
        const auto wanted = static_cast<std::size_t>(std::min(kChunk, left));
        const std::size_t count = file_->read(chunk, 0, wanted);
        output.write(chunk, 0, count);
        left -= static_cast<std::int64_t>(count);
    }
}

}  // namespace Drawing::Print
