#include "Core/Format.h"

#include "Core/Exception.h"

#include <charconv>

namespace Core {

std::int32_t Format::parseInt(const String& text) {
    const std::string digits = text.toUtf8();
    const char* end = digits.data() + digits.size();
    std::int32_t value = 0;
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    if (error != std::errc() || stop != end)
        throw FormatException("Format", 1, "\"" + digits + "\" is not a 32-bit integer");
    return value;
}

}  // namespace Core
