#include "Print/fonts/internal/CharString.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Drawing::Print {

namespace {

constexpr std::uint16_t kKey = 4330;
constexpr unsigned kFactor = 52845;
constexpr unsigned kSummand = 22719;

constexpr std::uint8_t kVerticalMove = 4;
constexpr std::uint8_t kLine = 5;
constexpr std::uint8_t kHorizontalLine = 6;
constexpr std::uint8_t kVerticalLine = 7;
constexpr std::uint8_t kCurve = 8;
constexpr std::uint8_t kClose = 9;
constexpr std::uint8_t kSidebearing = 13;
constexpr std::uint8_t kEnd = 14;
constexpr std::uint8_t kMove = 21;
constexpr std::uint8_t kHorizontalMove = 22;
constexpr std::uint8_t kVerticalToHorizontalCurve = 30;
constexpr std::uint8_t kHorizontalToVerticalCurve = 31;

}  // namespace

namespace CharString {

void appendNumber(int value, Bytes& out) {
    const auto add = [&](int byte) { out.push_back(static_cast<std::uint8_t>(byte)); };
    if (value >= -107 && value <= 107) {
        add(value + 139);
    } else if (value >= 108 && value <= 1131) {
        add(247 + (value - 108) / 256);
        add((value - 108) % 256);
    } else if (value >= -1131 && value <= -108) {
        add(251 + (-value - 108) / 256);
        add((-value - 108) % 256);
    } else {
        add(255);
        for (int shift = 24; shift >= 0; shift -= 8)
            add(value >> shift & 0xFF);
    }
}

Bytes encrypted(std::string_view clear) {
    std::uint16_t key = kKey;
    Bytes cipher;
    cipher.reserve(clear.size());
    for (const char character : clear) {
        cipher.push_back(
            static_cast<std::uint8_t>(static_cast<std::uint8_t>(character) ^ key >> 8));
        key = static_cast<std::uint16_t>((cipher.back() + key) * kFactor + kSummand);
    }
    return cipher;
}

Bytes encrypted(const Bytes& clear) {
    return encrypted({reinterpret_cast<const char*>(clear.data()), clear.size()});
}

Bytes decrypted(std::string_view cipher, int lead, std::uint16_t key) {
    Bytes clear;
    clear.reserve(cipher.size());
    for (const char character : cipher) {
        const auto byte = static_cast<std::uint8_t>(character);
        clear.push_back(lead < 0 ? byte : static_cast<std::uint8_t>(byte ^ key >> 8));
        key = static_cast<std::uint16_t>((byte + key) * kFactor + kSummand);
    }
    if (lead > 0)
        clear.erase(clear.begin(),
                    clear.begin() + std::min<std::ptrdiff_t>(lead, std::ssize(clear)));
    return clear;
}

}  // namespace CharString

OutlineCharString::OutlineCharString(float unit, float advance) : unit_(unit) {
    put({0, static_cast<int>(std::lround(advance * unit))}, kSidebearing);
}

OutlineCharString::Step OutlineCharString::stepTo(float x, float y) {
    const int newX = static_cast<int>(std::lround(x * unit_));
    const int newY = static_cast<int>(std::lround(y * unit_));
    const Step step{newX - x_, newY - y_};
    x_ = newX;
    y_ = newY;
    return step;
}

void OutlineCharString::put(std::initializer_list<int> numbers, std::uint8_t command) {
    for (const int number : numbers)
        CharString::appendNumber(number, bytes_);
    bytes_.push_back(command);
}

void OutlineCharString::moveTo(float x, float y) {
    const Step step = stepTo(x, y);
    if (step.y == 0)
        put({step.x}, kHorizontalMove);
    else if (step.x == 0)
        put({step.y}, kVerticalMove);
    else
        put({step.x, step.y}, kMove);
}

void OutlineCharString::lineTo(float x, float y) {
    const Step step = stepTo(x, y);
    if (step.y == 0)
        put({step.x}, kHorizontalLine);
    else if (step.x == 0)
        put({step.y}, kVerticalLine);
    else
        put({step.x, step.y}, kLine);
}

void OutlineCharString::curveTo(float x1, float y1, float x2, float y2, float x3, float y3) {
    const Step one = stepTo(x1, y1);
    const Step two = stepTo(x2, y2);
    const Step three = stepTo(x3, y3);
    if (one.x == 0 && three.y == 0)
        put({one.y, two.x, two.y, three.x}, kVerticalToHorizontalCurve);
    else if (one.y == 0 && three.x == 0)
        put({one.x, two.x, two.y, three.y}, kHorizontalToVerticalCurve);
    else
        put({one.x, one.y, two.x, two.y, three.x, three.y}, kCurve);
}

void OutlineCharString::close() {
    bytes_.push_back(kClose);
}

CharString::Bytes OutlineCharString::finish() {
    bytes_.push_back(kEnd);
    return bytes_;
}

}  // namespace Drawing::Print
