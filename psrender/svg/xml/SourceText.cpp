#include "psrender/svg/xml/SourceText.h"

#include "Core/Unicode.h"
#include "psrender/svg/values/Characters.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace psrender::svg {

namespace Unicode = Core::Unicode;

namespace {

constexpr std::string_view kLittleEndianMark = "\xff\xfe";
constexpr std::string_view kBigEndianMark = "\xfe\xff";
constexpr std::string_view kUtf8Mark = "\xef\xbb\xbf";
constexpr std::string_view kGzipMark = "\x1f\x8b";

/// Reads UTF-16 code units without their byte order mark.
class Utf16Reader {
public:
    Utf16Reader(std::string_view bytes, bool isBigEndian)
        : bytes_(bytes), highByte_(isBigEndian ? 0 : 1) {}

    [[nodiscard]] bool atEnd() const { return at_ + 1 >= bytes_.size(); }

    char32_t next() {
        const char32_t unit = take();
        if (!Unicode::isSurrogate(unit))
            return unit;
        const bool isPair =
            Unicode::isHighSurrogate(unit) && !atEnd() && Unicode::isLowSurrogate(peek());
        return isPair ? Unicode::combine(unit, take()) : Unicode::kReplacement;
    }

private:
    [[nodiscard]] char32_t peek() const {
        const auto byte = [this](std::size_t i) {
            return static_cast<std::uint8_t>(bytes_[at_ + i]);
        };
        return static_cast<char32_t>(byte(highByte_) << 8 | byte(1 - highByte_));
    }
    char32_t take() {
        const char32_t unit = peek();
        at_ += 2;
        return unit;
    }

    std::string_view bytes_;
    std::size_t highByte_;
    std::size_t at_ = 0;
};

std::string fromUtf16(std::string_view bytes) {
    Utf16Reader reader(bytes.substr(2), bytes.substr(0, 2) == kBigEndianMark);
    std::string result;
    result.reserve(bytes.size() / 2);
    while (!reader.atEnd())
        Unicode::appendUtf8(result, reader.next());
    return result;
}

}  // namespace

SourceText::SourceText(std::string_view bytes, std::string name)
    : name_(std::move(name)), text_(bytes) {
    const std::string_view mark = bytes.substr(0, 2);
    wasConverted_ = mark == kLittleEndianMark || mark == kBigEndianMark;
    if (wasConverted_)
        replace(fromUtf16(bytes));
    else if (bytes.substr(0, 3) == kUtf8Mark)
        text_.remove_prefix(kUtf8Mark.size());
    rejectForeignFormats();
}

void SourceText::replace(std::string text) {
    storage_ = std::move(text);
    text_ = storage_;
}

Place SourceText::placeAt(std::size_t offset) const {
    const std::string_view before = text_.substr(0, offset);
    const auto lines = std::count(before.begin(), before.end(), '\n');
    const std::size_t lineStart = before.rfind('\n') + 1;  // 0 if there is none
    return {name_, static_cast<std::size_t>(lines) + 1, before.size() - lineStart + 1};
}

void SourceText::fail(std::size_t offset, const std::string& sentence) const {
    throw InputError(placeAt(offset), sentence);
}

void SourceText::fail(const std::string& sentence) const {
    throw InputError(place(), sentence);
}

void SourceText::rejectForeignFormats() const {
    const auto* const first = std::find_if_not(text_.begin(), text_.end(), isSpace);
    if (first == text_.end())
        fail("the file is empty; give a file that holds an SVG drawing");
    if (text_.substr(0, 2) == kGzipMark)
        fail("the file is compressed; decompress it with gunzip first");
    if (*first != '<')
        fail("this is not an SVG file, as it does not begin with '<'; give an SVG file");
    const std::size_t zero = text_.find('\0');
    if (zero != std::string_view::npos)
        fail(zero, "there is a zero byte, which no SVG file holds; give an SVG file");
}

}  // namespace psrender::svg
