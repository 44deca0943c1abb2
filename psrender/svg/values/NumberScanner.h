#pragma once

#include <optional>
#include <string_view>

namespace psrender::svg {

/// Reads numbers and the separators between them from attribute text, left to right. It
/// reads as browsers do: "+1", ".5" and "5." are numbers, and "1.5.5" is two of them.
class NumberScanner {
public:
    explicit NumberScanner(std::string_view text)
        : next_(text.data()), end_(text.data() + text.size()) {}

    [[nodiscard]] bool atEnd() const { return next_ == end_; }
    /// The next character, or a zero byte at the end.
    [[nodiscard]] char peek() const { return atEnd() ? '\0' : *next_; }
    [[nodiscard]] bool atNumber() const;
    [[nodiscard]] std::string_view rest() const;

    void advance() { ++next_; }
    /// Passes `c` if it comes next.
    bool skip(char c);
    void skipSpace();
    /// Passes white space with at most one comma in it.
    void skipCommaSpace();

    /// The number that comes next, or nothing (and no move) if there is none or it does not
    /// fit into single precision, which is what a PostScript real holds.
    std::optional<double> number();
    /// The one digit 0 or 1 of an arc; other numbers may follow it without a separator.
    std::optional<bool> flag();
    /// The letters and percent signs that come next: a unit or a function name.
    std::string_view word();

private:
    const char* next_;
    const char* end_;
};

}  // namespace psrender::svg
