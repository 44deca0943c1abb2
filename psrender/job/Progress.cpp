#include "psrender/job/Progress.h"

#include <cstdio>
#include <string>

namespace psrender {

namespace {

constexpr std::size_t kBarWidth = 40;
constexpr auto kPatience = std::chrono::seconds(1);

}  // namespace

Progress::Progress(std::size_t total, bool shown)
    : total_(total), shown_(shown && total > 1), start_(std::chrono::steady_clock::now()) {}

Progress::~Progress() {
    clear();
}

void Progress::advance() {
    ++done_;
    if (shown_ && std::chrono::steady_clock::now() - start_ > kPatience)
        draw();
}

void Progress::draw() {
    const std::size_t filled = kBarWidth * done_ / total_;
    const std::string bar = std::string(filled, '#') + std::string(kBarWidth - filled, '.');
    std::fprintf(stderr, "\r[%s] %zu of %zu pages", bar.c_str(), done_, total_);
    drawn_ = true;
}

void Progress::clear() {
    if (drawn_)
        std::fputs("\r\x1B[K", stderr);
    drawn_ = false;
}

}  // namespace psrender
