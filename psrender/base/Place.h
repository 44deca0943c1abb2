#pragma once

#include <cstddef>
#include <string>

namespace psrender {

/// Where in an input something stands; line and column count from 1, 0 means unknown.
struct Place {
    std::string file;
    std::size_t line = 0;
    std::size_t column = 0;
    std::string element{};  ///< such as `<rect id="frame">`; empty if unknown
};

/// The style of every message: "FILE:LINE:COLUMN: <element>: sentence", with as much of the place
/// as is known.
std::string messageAt(const Place& place, const std::string& sentence);

}  // namespace psrender
