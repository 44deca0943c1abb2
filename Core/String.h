#pragma once

#include "Core/Export.h"
#include "Core/Forward.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Core {

/// Text as a sequence of UTF-16 code units, a value: up to seven units are held inline, longer
/// ones on the heap; moves are cheap. Positions and lengths count code units.
class CORE_API String {
public:
    static constexpr std::size_t npos = std::u16string_view::npos;

    String() = default;
    String(std::u16string units) : units_(std::move(units)) {}
    String(std::u16string_view units) : units_(units) {}
    String(const char16_t* units) : units_(units) {}
    /// From UTF-8; malformed bytes become U+FFFD.
    String(std::string_view utf8);
    String(const char* utf8) : String(std::string_view(utf8)) {}
    String(const std::string& utf8) : String(std::string_view(utf8)) {}

    /// The message with this number of the library's own message table; a number that is not in
    /// the table gives the text "message {number}".
    static String formatS(int messageNumber);

    [[nodiscard]] std::size_t length() const { return units_.size(); }
    [[nodiscard]] bool isEmpty() const { return units_.empty(); }
    char16_t operator[](std::size_t index) const { return units_[index]; }
    [[nodiscard]] std::u16string_view view() const { return units_; }
    /// UTF-8; a lone surrogate becomes U+FFFD.
    [[nodiscard]] std::string toUtf8() const;

    /// Below, equal to or above 0 as this text sorts before, with or behind `other`, unit by unit.
    [[nodiscard]] int compare(const String& other) const { return units_.compare(other.units_); }
    /// Equality that takes the letters A-Z and a-z for the same.
    [[nodiscard]] bool equalsNoCase(const String& other) const;

    [[nodiscard]] bool startsWith(const String& text) const {
        return view().starts_with(text.view());
    }
    [[nodiscard]] bool contains(const String& text) const { return find(text) != npos; }
    /// Position of the first `text` at or behind `from`; npos if there is none.
    [[nodiscard]] std::size_t find(const String& text, std::size_t from = 0) const {
        return units_.find(text.units_, from);
    }
    /// Position of the last `unit`; npos if there is none.
    [[nodiscard]] std::size_t rFind(char16_t unit) const { return units_.rfind(unit); }
    /// Up to `count` units from `position`; empty when `position` is not inside the text.
    [[nodiscard]] String subString(std::size_t position, std::size_t count = npos) const;
    /// A copy in which every `from` stands replaced by `to`.
    [[nodiscard]] String replace(const String& from, const String& to) const;

    String& operator+=(const String& other) {
        units_ += other.units_;
        return *this;
    }
    friend String operator+(String left, const String& right) { return left += right; }
    friend bool operator==(const String&, const String&) = default;
    friend bool operator<(const String& a, const String& b) { return a.compare(b) < 0; }

private:
    std::u16string units_;
};

}  // namespace Core
