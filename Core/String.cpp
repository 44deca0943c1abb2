#include "Core/String.h"

#include "Core/Encoder.h"
#include "Core/Messages.h"

#include <algorithm>

namespace Core {

namespace {

char16_t lowerAscii(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

}  // namespace

String::String(std::string_view utf8) : units_(Encoder::utf16FromUtf8(utf8)) {}

String String::formatS(int messageNumber) {
    return findMessage(messageNumber);
}

std::string String::toUtf8() const {
    return Encoder::utf8FromUtf16(units_);
}

bool String::equalsNoCase(const String& other) const {
    return std::ranges::equal(units_, other.units_, {}, lowerAscii, lowerAscii);
}

String String::subString(std::size_t position, std::size_t count) const {
    return position < units_.size() ? String(view().substr(position, count)) : String();
}

String String::replace(const String& from, const String& to) const {
    if (from.isEmpty())
        return *this;
    std::u16string result;
    std::size_t start = 0;
    for (std::size_t hit = find(from); hit != npos; hit = find(from, start)) {
        result.append(units_, start, hit - start).append(to.units_);
        start = hit + from.length();
    }
    result.append(units_, start);
    return result;
}

}  // namespace Core
