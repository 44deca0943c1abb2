#include "Print/internal/RepeatedClips.h"

namespace Drawing::Print {

namespace {

/// What is shorter is not worth a name; what is longer may not fit an operand stack.
constexpr std::size_t kShortest = 100;
constexpr std::size_t kLongest = 2000;
constexpr std::size_t kMostKept = 50;

}  // namespace

std::string RepeatedClips::shorter(std::string_view text) {
    if (text.size() < kShortest || text.size() > kLongest)
        return {};
    const auto known = numbers_.find(text);
    if (known == numbers_.end()) {
        if (numbers_.size() >= kMostKept)
            numbers_.clear();
        numbers_.emplace(text, 0);
        return {};
    }
    const bool isDefined = known->second > 0;
    if (!isDefined)
        known->second = ++count_;
    const std::string name = "C" + std::to_string(known->second);
    if (isDefined)
        return name + "\n";
    std::string definition = "/" + name + "{";
    definition += text.substr(0, text.size() - 1);
    return definition + "}def " + name + "\n";
}

}  // namespace Drawing::Print
