#include "psrender/job/join/LineReader.h"

#include <algorithm>

namespace psrender::join {

namespace {

constexpr std::size_t kChunk = std::size_t{1} << 16;

}  // namespace

LineReader::LineReader(const std::string& name) : file_(name, false, false, true), chunk_(kChunk) {}

void LineReader::seek(std::uint64_t offset) {
    file_.seek(static_cast<std::int64_t>(offset), Core::IO::SeekOrigin::begin);
    chunkOffset_ = offset;
    begin_ = 0;
    end_ = 0;
    wasEnded_ = true;
}

bool LineReader::fill() {
    std::copy(chunk_.data() + begin_, chunk_.data() + end_, chunk_.data());
    chunkOffset_ += begin_;
    end_ -= begin_;
    begin_ = 0;
    const std::size_t count = file_.read(chunk_, end_, kChunk - end_);
    end_ += count;
    return count > 0;
}

std::optional<std::string_view> LineReader::next() {
    isBeginning_ = wasEnded_;
    std::size_t searched = 0;
    for (;;) {
        const std::string_view rest = chunk_.view().substr(begin_, end_ - begin_);
        const std::size_t lineEnd = rest.find('\n', searched);
        wasEnded_ = lineEnd != std::string_view::npos;
        if (wasEnded_ || rest.size() == kChunk) {
            const std::string_view line = rest.substr(0, wasEnded_ ? lineEnd + 1 : kChunk);
            begin_ += line.size();
            return line;
        }
        searched = rest.size();
        if (fill())
            continue;
        begin_ = end_;
        const std::string_view last = chunk_.view().substr(0, end_);
        return last.empty() ? std::nullopt : std::optional(last);
    }
}

}  // namespace psrender::join
