#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace Drawing::Print {

/// Clips that come back on a page: labels between clipped curves let the same outline be written
/// again and again. From the second time on it is a procedure.
class RepeatedClips {
public:
    /// What to write in place of `text`, a clip with its line end; empty to leave it as it is.
    [[nodiscard]] std::string shorter(std::string_view text);
    /// Nothing that was written can be relied on.
    void forget() { numbers_.clear(); }

private:
    std::map<std::string, std::size_t, std::less<>> numbers_;  ///< 0 for what was written once
    std::size_t count_ = 0;
};

}  // namespace Drawing::Print
