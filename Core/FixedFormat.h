#pragma once

#include "Core/NumberText.h"
#include "Core/Stream.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <tuple>
#include <utility>

/// Templates known when the program is compiled: "{0} {1} m" is taken apart by the compiler, and
/// what remains at run time is copying its literal parts and writing its numbers, straight into a
/// stream's buffer. The place for lines that are written a million times; all other text goes
/// through `StringFormatStream`.
namespace Core {

/// A template as a template argument: ASCII text with places {0} to {9}.
template <std::size_t N>
struct FixedText {
    consteval FixedText(const char (&literal)[N]) { std::copy_n(literal, N, text.data()); }

    static constexpr std::size_t length = N - 1;
    std::array<char, N> text{};
};

namespace FixedFormat {

/// A literal run and the number of the argument behind it.
struct Piece {
    std::size_t begin = 0;
    std::size_t length = 0;
    int argument = -1;
};

template <FixedText Template>
constexpr bool isPlace(std::size_t at) {
    return at + 2 < Template.length && Template.text[at] == '{' && Template.text[at + 1] >= '0' &&
           Template.text[at + 1] <= '9' && Template.text[at + 2] == '}';
}

template <FixedText Template>
consteval std::size_t countPieces() {
    std::size_t count = 1;
    for (std::size_t i = 0; i < Template.length; ++i)
        count += isPlace<Template>(i) ? 1 : 0;
    return count;
}

template <FixedText Template>
consteval auto takeApart() {
    std::array<Piece, countPieces<Template>()> pieces{};
    std::size_t piece = 0;
    for (std::size_t i = 0; i < Template.length; ++i) {
        if (!isPlace<Template>(i)) {
            ++pieces[piece].length;
            continue;
        }
        pieces[piece].argument = Template.text[i + 1] - '0';
        i += 2;
        if (++piece < pieces.size())
            pieces[piece].begin = i + 1;
    }
    return pieces;
}

template <FixedText Template>
inline constexpr auto kPieces = takeApart<Template>();

/// The longest text that the template can give with arguments of these types.
template <FixedText Template, class... Numbers>
consteval std::size_t maxLength() {
    constexpr std::array<std::size_t, sizeof...(Numbers) + 1> widths{kMaxNumberText<Numbers>..., 0};
    std::size_t total = 0;
    for (const Piece& piece : kPieces<Template>)
        total += piece.length +
                 (piece.argument < 0 ? 0 : widths[static_cast<std::size_t>(piece.argument)]);
    return total;
}

template <FixedText Template, std::size_t Index, class Tuple>
char* writePiece(char* out, const Tuple& numbers) {
    constexpr Piece piece = kPieces<Template>[Index];
    out = std::copy_n(Template.text.data() + piece.begin, piece.length, out);
    if constexpr (piece.argument >= 0)
        out = writeNumber(out, std::get<static_cast<std::size_t>(piece.argument)>(numbers));
    return out;
}

template <FixedText Template, class... Numbers>
char* fill(char* out, const Numbers&... numbers) {
    const auto all = std::forward_as_tuple(numbers...);
    [&]<std::size_t... Index>(std::index_sequence<Index...>) {
        ((out = writePiece<Template, Index>(out, all)), ...);
    }
    (std::make_index_sequence<countPieces<Template>()>{});
    return out;
}

}  // namespace FixedFormat

/// Writes the filled template to `stream` in one piece. If a number cannot be written, its
/// exception leaves the stream as it was.
template <FixedText Template, class... Numbers>
void writeFixed(IO::Stream& stream, Numbers... numbers) {
    char* out = stream.reserve(FixedFormat::maxLength<Template, Numbers...>());
    stream.commit(FixedFormat::fill<Template>(out, numbers...));
}

/// The filled template as a text of its own.
template <FixedText Template, class... Numbers>
std::string formatFixed(Numbers... numbers) {
    std::array<char, FixedFormat::maxLength<Template, Numbers...>()> text{};
    return {text.data(), FixedFormat::fill<Template>(text.data(), numbers...)};
}

}  // namespace Core
