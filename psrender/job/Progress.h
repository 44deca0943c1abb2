#pragma once

#include <chrono>
#include <cstddef>

namespace psrender {

/// A bar on a terminal that shows how far a long job is; silent elsewhere, for jobs of one page,
/// and in the first second.
class Progress {
public:
    /// `shown`: standard error is a terminal and the user did not ask for quiet.
    Progress(std::size_t total, bool shown);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    /// Wipes the bar away.
    ~Progress();

    void advance();
    /// Clears the line for a message; the next `advance` draws the bar again.
    void clear();

private:
    void draw();

    std::size_t total_;
    std::size_t done_ = 0;
    bool shown_;
    bool drawn_ = false;
    std::chrono::steady_clock::time_point start_;
};

}  // namespace psrender
