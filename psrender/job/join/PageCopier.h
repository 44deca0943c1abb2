#pragma once

#include "Core/Stream.h"
#include "psrender/job/join/LineReader.h"

#include <cstddef>
#include <string>

namespace psrender::join {

/// Copies pages of parts one after the other and numbers them anew.
class PageCopier {
public:
    explicit PageCopier(Core::IO::Stream& output) : output_(output) {}

    /// Copies from `file`, which stands at the first page, to the trailer. With `names`, the pages
    /// are drawn under the dictionary of that name. Returns how many there were.
    std::size_t copy(LineReader& file, const std::string& names);

private:
    void copyLine(std::string_view line, const std::string& names);
    void copyPageComment(std::string_view line);

    Core::IO::Stream& output_;
    std::size_t pages_ = 0;      ///< of all parts
    std::size_t partPages_ = 0;  ///< of the part that is copied
    std::size_t depth_ = 0;      ///< of documents within the page, whose comments are their own
};

}  // namespace psrender::join
