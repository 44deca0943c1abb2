#pragma once

#include "Core/Stream.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace Drawing::Print {

/// PostScript text in lines of moderate length, none of which begins with "%": a program that
/// looks for structure comments finds none in it.
class ProgramText {
public:
    /// `stream` must outlive the text, which is complete there after `finish`.
    explicit ProgramText(Core::IO::Stream& stream) : stream_(stream) {}

    /// Appends `tokens` on one line. They must be delimited from their neighbours by what they
    /// begin and end with, or by a blank of their own.
    ProgramText& operator<<(std::string_view tokens);
    /// A string literal in base 85 (PLRM 3.2.2).
    void string(std::span<const std::uint8_t> bytes);
    /// Ends the line, if one is begun.
    void endLine();
    void finish();

private:
    void put(char character);

    Core::IO::Stream& stream_;
    std::string text_;
    std::size_t column_ = 0;
};

}  // namespace Drawing::Print
