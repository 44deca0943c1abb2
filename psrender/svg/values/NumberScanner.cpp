#include "psrender/svg/values/NumberScanner.h"

#include "psrender/svg/values/Characters.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace psrender::svg {

namespace {

constexpr double kLargest = std::numeric_limits<float>::max();
constexpr double kSmallest = std::numeric_limits<float>::min();

bool startsNumber(const char* at, const char* end) {
    if (at != end && (*at == '+' || *at == '-'))
        ++at;
    if (at != end && *at == '.')
        ++at;
    return at != end && isDigit(*at);
}

/// Values too small for single precision are zero, so that no later square of them is.
std::optional<double> fitted(double value) {
    if (std::abs(value) > kLargest)
        return std::nullopt;
    return std::abs(value) < kSmallest ? 0 : value;
}

bool hasNegativeExponent(std::string_view number) {
    return number.find("e-") != std::string_view::npos ||
           number.find("E-") != std::string_view::npos;
}

}  // namespace

bool NumberScanner::atNumber() const {
    return startsNumber(next_, end_);
}

std::string_view NumberScanner::rest() const {
    return {next_, static_cast<std::size_t>(end_ - next_)};
}

bool NumberScanner::skip(char c) {
    if (peek() != c || atEnd())
        return false;
    ++next_;
    return true;
}

void NumberScanner::skipSpace() {
    while (next_ != end_ && isSpace(*next_))
        ++next_;
}

void NumberScanner::skipCommaSpace() {
    skipSpace();
    if (skip(','))
        skipSpace();
}

std::optional<double> NumberScanner::number() {
    if (!atNumber())
        return std::nullopt;
    const char* begin = *next_ == '+' ? next_ + 1 : next_;
    double value = 0;
    const auto [stop, error] = std::from_chars(begin, end_, value);
    if (error == std::errc::result_out_of_range &&
        !hasNegativeExponent({begin, static_cast<std::size_t>(stop - begin)}))
        return std::nullopt;
    const std::optional<double> result = fitted(error == std::errc{} ? value : 0);
    if (result)
        next_ = stop;
    return result;
}

std::optional<bool> NumberScanner::flag() {
    if (peek() != '0' && peek() != '1')
        return std::nullopt;
    return *next_++ == '1';
}

std::string_view NumberScanner::word() {
    const char* begin = next_;
    while (next_ != end_ && (isLetter(*next_) || *next_ == '%'))
        ++next_;
    return {begin, static_cast<std::size_t>(next_ - begin)};
}

}  // namespace psrender::svg
