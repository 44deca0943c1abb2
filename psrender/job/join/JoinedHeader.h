#pragma once

#include "Core/Stream.h"

#include <array>
#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace psrender::join {

/// What the headers of all parts come to: the first part's title, author and day; the box around
/// all boxes; all the fonts that are needed.
class JoinedHeader {
public:
    /// Adds the comments of a part; returns how many pages it says that it has.
    std::size_t add(const std::vector<std::string>& comments);

    [[nodiscard]] std::size_t pages() const { return pages_; }
    /// `supplied` has kind and name of each resource that the document brings.
    void write(const std::vector<std::string>& supplied, Core::IO::Stream& output) const;

private:
    using Box = std::array<double, 4>;

    static void widen(Box& box, const std::string& values);
    void addNeeded(const std::string& resource);

    std::vector<std::string> first_;  ///< lines that are for the whole document
    std::vector<std::string> needed_;
    std::set<std::string> knownNeeded_;
    Box box_{};
    Box exactBox_{};
    std::size_t pages_ = 0;
    bool isFirst_ = true;
};

}  // namespace psrender::join
