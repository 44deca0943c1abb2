#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace psrender {

/// Where in an input something stands; line and column count from 1, 0 means unknown.
struct Place {
    std::string file;
    std::size_t line = 0;
    std::size_t column = 0;
};

/// An input that cannot be turned into a page. `what()` is one sentence for the user:
/// "FILE:LINE:COLUMN: what is wrong; what to do".
class InputError : public std::runtime_error {
public:
    InputError(const Place& place, const std::string& sentence);

    [[nodiscard]] const Place& place() const { return place_; }

private:
    Place place_;
};

}  // namespace psrender
