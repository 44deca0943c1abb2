#include "Print/images/internal/JpegScanner.h"

#include <algorithm>
#include <string_view>

namespace Drawing::Print {

namespace {

using namespace std::string_view_literals;

constexpr std::uint8_t kMark = 0xFF;
constexpr std::uint8_t kStart = 0xD8;
constexpr std::uint8_t kEnd = 0xD9;
constexpr std::uint8_t kScan = 0xDA;
constexpr std::uint8_t kBaseline = 0xC0;
constexpr std::uint8_t kExtended = 0xC1;
constexpr std::uint8_t kJfif = 0xE0;
constexpr std::uint8_t kAdobe = 0xEE;

/// Marks that stand alone: start, restarts, and one for temporary use.
bool isBare(std::uint8_t code) {
    return (code >= 0xD0 && code <= kStart) || code == 0x01;
}

/// Every way of coding a frame has a code from C0 to CF; three of those are for tables.
bool isFrame(std::uint8_t code) {
    return code >= 0xC0 && code <= 0xCF && code != 0xC4 && code != 0xC8 && code != 0xCC;
}

}  // namespace

std::size_t JpegScanner::scan(std::span<const std::uint8_t> bytes) {
    std::size_t at = 0;
    while (at < bytes.size() && state_ != State::end) {
        if (state_ == State::entropy)
            at = static_cast<std::size_t>(
                std::find(bytes.begin() + static_cast<std::ptrdiff_t>(at), bytes.end(), kMark) -
                bytes.begin());
        if (at < bytes.size())
            step(bytes[at++]);
    }
    return at;
}

void JpegScanner::step(std::uint8_t byte) {
    switch (state_) {
        case State::marker:
        case State::entropy:
            state_ = byte == kMark ? State::code : State::damaged;
            break;
        case State::code:
            readCode(byte);
            break;
        case State::lengthHigh:
            left_ = std::size_t{byte} << 8;
            state_ = State::lengthLow;
            break;
        case State::lengthLow:
            left_ |= byte;
            state_ = left_ < 2 ? State::damaged : State::segment;
            left_ -= 2;
            headSize_ = 0;
            if (state_ == State::segment && left_ == 0)
                endSegment();
            break;
        case State::segment:
            readSegment(byte);
            break;
        case State::end:
        case State::damaged:
            break;
    }
}

void JpegScanner::readCode(std::uint8_t code) {
    if (code == kMark)
        return;  // marks may be filled up
    code_ = code;
    if (code == 0 || isBare(code))
        state_ = isEntropyCoded_ ? State::entropy : code == 0 ? State::damaged : State::marker;
    else if (code == kEnd)
        state_ = isEntropyCoded_ ? State::end : State::damaged;
    else
        state_ = State::lengthHigh;
}

void JpegScanner::readSegment(std::uint8_t byte) {
    if (headSize_ < head_.size())
        head_[headSize_++] = byte;
    if (--left_ == 0)
        endSegment();
}

void JpegScanner::endSegment() {
    const std::string_view head(reinterpret_cast<const char*>(head_.data()), headSize_);
    if (isFrame(code_))
        readFrame();
    hasAdobeMarker_ = hasAdobeMarker_ || (code_ == kAdobe && head.starts_with("Adobe"));
    hasJfifMarker_ = hasJfifMarker_ || (code_ == kJfif && head.starts_with("JFIF\0"sv));
    isEntropyCoded_ = isEntropyCoded_ || code_ == kScan;
    state_ = isEntropyCoded_ ? State::entropy : State::marker;
}

/// Precision, height, width, number of components, and three bytes for each of them.
void JpegScanner::readFrame() {
    constexpr std::size_t kFrameHead = 6;
    ++frames_;
    if (headSize_ < kFrameHead)
        return;
    isSequential_ = (code_ == kBaseline || code_ == kExtended) && head_[0] == 8;
    size_ = {head_[3] << 8 | head_[4], head_[1] << 8 | head_[2]};
    components_ = head_[5];
    isNamedRgb_ = head_[6] == 'R' && head_[9] == 'G' && head_[12] == 'B';
}

/// Without a marker that tells the colour space, some readers go by the components' names.
bool JpegScanner::isUsable() const {
    const bool isSpaceClear = !isNamedRgb_ || components_ != 3 || hasAdobeMarker_ || hasJfifMarker_;
    return state_ == State::end && frames_ == 1 && isSequential_ && isSpaceClear;
}

}  // namespace Drawing::Print
