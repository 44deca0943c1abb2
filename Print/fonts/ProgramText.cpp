#include "Print/fonts/internal/ProgramText.h"

#include <algorithm>
#include <array>

namespace Drawing::Print {

namespace {

constexpr std::size_t kLine = 120;
constexpr std::size_t kHeldBack = 65536;

}  // namespace

ProgramText& ProgramText::operator<<(std::string_view tokens) {
    if (column_ + tokens.size() > kLine)
        endLine();
    text_ += tokens;
    column_ += tokens.size();
    return *this;
}

void ProgramText::endLine() {
    if (column_ > 0)
        text_ += '\n';
    column_ = 0;
    if (text_.size() >= kHeldBack)
        finish();
}

void ProgramText::finish() {
    stream_.write(text_);
    text_.clear();
}

void ProgramText::put(char character) {
    if (column_ >= kLine)
        endLine();
    if (column_ == 0 && character == '%') {
        text_ += ' ';
        ++column_;
    }
    text_ += character;
    ++column_;
}

void ProgramText::string(std::span<const std::uint8_t> bytes) {
    *this << "<~";
    for (; !bytes.empty(); bytes = bytes.subspan(std::min<std::size_t>(4, bytes.size()))) {
        const std::size_t count = std::min<std::size_t>(4, bytes.size());
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 4; ++i)
            group = group << 8 | (i < count ? bytes[i] : 0U);
        if (group == 0 && count == 4) {
            put('z');
            continue;
        }
        std::array<char, 5> digits{};
        for (std::size_t i = digits.size(); i-- > 0; group /= 85)
            digits[i] = static_cast<char>('!' + group % 85);
        for (std::size_t i = 0; i <= count; ++i)
            put(digits[i]);
    }
    *this << "~>";
}

}  // namespace Drawing::Print
