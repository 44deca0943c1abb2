#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace psrender {

/// What a reader or the planner left out or approximated, counted by kind, so that a file with
/// ten thousand labels gives one line rather than ten thousand.
class Warnings {
public:
    /// Counts one more case of `kind`, a phrase such as "text is not drawn yet (<text>)".
    void add(const std::string& kind) { ++counts_[kind]; }

    [[nodiscard]] bool empty() const { return counts_.empty(); }
    /// One sentence a kind: the kind, and " (N times)" when it was met more than once.
    [[nodiscard]] std::vector<std::string> sentences() const;

private:
    std::map<std::string, std::size_t> counts_;
};

}  // namespace psrender
