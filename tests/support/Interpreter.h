#pragma once

#include <array>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

/// A page as an interpreter shows it: 8-bit RGB, rows from the top.
struct Picture {
    using Pixel = std::array<std::uint8_t, 3>;

    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> bytes;

    [[nodiscard]] Pixel at(int x, int y) const;
};

/// What an interpreter made of a document.
struct Interpretation {
    int exitCode = -1;
    std::string messages;  ///< of the interpreter, empty if it had nothing to say
    std::vector<Picture> pages;
};

/// Ghostscript renders `postScript` at `dpi` without smoothing, in a folder of its own that is
/// gone afterwards. `options` are more of its options.
Interpretation interpret(std::string_view postScript, int dpi = 72,
                         const std::string& options = "");

/// The output of a program that is run by the shell and fed with `input`.
std::string outputOf(const std::string& command, std::string_view input);
