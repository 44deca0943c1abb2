#pragma once

#include "Core/ByteArray.h"
#include "Core/FileStream.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace psrender::join {

/// The lines of a file with their places. What stays in memory is some kilobytes of it.
class LineReader {
public:
    /// Raises `Core::IOException`, as all operations do.
    explicit LineReader(const std::string& name);

    /// The next line with its end, to be used before the next call; nothing at the end of the file.
    /// A line that is longer than documents of ours have comes in pieces.
    std::optional<std::string_view> next();
    /// Whether what `next` gave last begins a line.
    [[nodiscard]] bool isBeginning() const { return isBeginning_; }
    /// Of what `next` gives next.
    [[nodiscard]] std::uint64_t offset() const { return chunkOffset_ + begin_; }
    void seek(std::uint64_t offset);
    std::uint64_t length() { return static_cast<std::uint64_t>(file_.length()); }

private:
    /// Moves what is left to the front and fills up behind it; false at the end of the file.
    bool fill();

    Core::IO::FileStream file_;
    Core::ByteArray chunk_;
    std::uint64_t chunkOffset_ = 0;
    std::size_t begin_ = 0;  ///< of what was not given yet
    std::size_t end_ = 0;
    bool isBeginning_ = false;
    bool wasEnded_ = true;  ///< what `next` gave last ended a line
};

}  // namespace psrender::join
