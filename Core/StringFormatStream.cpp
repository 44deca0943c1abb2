#include "Core/StringFormatStream.h"

#include "Core/Exception.h"
#include "Core/NumberText.h"

#include <charconv>

namespace Core {

namespace {

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

/// Length of the place that begins at `at`, "{0}", "{0:X02}" or "{0:O03}"; 0 if the brace there
/// is text.
std::size_t placeLength(std::u16string_view pattern, std::size_t at) {
    const std::u16string_view rest = pattern.substr(at);
    if (rest.size() >= 3 && isDigit(rest[1]) && rest[2] == u'}')
        return 3;
    const bool form = rest.size() >= 7 && isDigit(rest[1]) && rest[2] == u':' &&
                      (rest[3] == u'X' || rest[3] == u'O') && isDigit(rest[4]) &&
                      isDigit(rest[5]) && rest[6] == u'}';
    return form ? 7 : 0;
}

[[noreturn]] void refuse(const char* reason) {
    throw FormatException("StringFormatStream", 1, reason);
}

}  // namespace

void StringFormatStream::add(std::u16string_view text, Argument argument) {
    if (count_ == kMaxArguments)
        refuse("more than ten arguments for one template");
    argument.begin = texts_.size();
    argument.length = text.size();
    texts_ += text;
    arguments_[count_++] = argument;
}

void StringFormatStream::add(std::string_view ascii, Argument argument) {
    std::array<char16_t, kMaxNumberText<double>> wide{};
    std::copy(ascii.begin(), ascii.end(), wide.begin());
    add(std::u16string_view(wide.data(), ascii.size()), argument);
}

StringFormatStream& StringFormatStream::operator<<(float value) {
    std::array<char, kMaxNumberText<float>> text{};
    add(std::string_view(text.data(), writeNumber(text.data(), value)), {});
    return *this;
}

StringFormatStream& StringFormatStream::operator<<(double value) {
    std::array<char, kMaxNumberText<double>> text{};
    add(std::string_view(text.data(), writeNumber(text.data(), value)), {});
    return *this;
}

/// `value` carries the bits of the argument; the sign tells a negative number from an unsigned
/// one with its highest bit set.
StringFormatStream& StringFormatStream::insert(std::int64_t value, bool negative) {
    std::array<char, kMaxNumberText<std::int64_t>> text{};
    char* end = negative ? writeNumber(text.data(), value)
                         : writeNumber(text.data(), static_cast<std::uint64_t>(value));
    add(std::string_view(text.data(), end), {0, 0, value, true, negative});
    return *this;
}

StringFormatStream& StringFormatStream::operator<<(const String& text) {
    add(text.view(), {});
    return *this;
}

void StringFormatStream::appendDigits(std::u16string_view form, const Argument& argument,
                                      std::u16string& out) {
    if (!argument.isInteger)
        refuse("digits asked for of an argument that is no integer");
    const auto bits = argument.isNegative ? static_cast<std::uint32_t>(argument.value)
                                          : static_cast<std::uint64_t>(argument.value);
    const unsigned shift = form[0] == u'X' ? 4 : 3;
    const std::size_t width = std::size_t{form[1]} * 10 + form[2] - std::size_t{u'0'} * 11;
    std::u16string digits;
    for (std::uint64_t rest = bits; rest != 0; rest >>= shift)
        digits.insert(digits.begin(), u"0123456789ABCDEF"[rest & ((1U << shift) - 1)]);
    out.append(width > digits.size() ? width - digits.size() : 0, u'0').append(digits);
}

/// Writes the argument of the place at `at`; the length of the place, 0 if there is none.
std::size_t StringFormatStream::fillPlace(std::size_t at, std::u16string& out) const {
    const std::size_t length = placeLength(pattern_, at);
    if (length == 0)
        return 0;
    const auto index = static_cast<std::size_t>(pattern_[at + 1] - u'0');
    if (index >= count_)
        refuse("a place of the template has no argument");
    const Argument& argument = arguments_[index];
    if (length == 3)
        out.append(texts_, argument.begin, argument.length);
    else
        appendDigits(pattern_.substr(at + 3, 3), argument, out);
    return length;
}

String StringFormatStream::str() const {
    std::u16string out;
    out.reserve(pattern_.size() + texts_.size());
    for (std::size_t at = 0; at < pattern_.size();) {
        const std::size_t brace = std::min(pattern_.find(u'{', at), pattern_.size());
        out.append(pattern_, at, brace - at);
        at = brace;
        if (at == pattern_.size())
            break;
        const std::size_t place = fillPlace(at, out);
        if (place == 0)
            out.push_back(u'{');
        at += place == 0 ? 1 : place;
    }
    return {std::move(out)};
}

}  // namespace Core
