#pragma once

#include "psrender/base/Place.h"

#include <stdexcept>
#include <string>

namespace psrender {

/// An input that cannot be turned into a page. `what()` is one sentence for the user, as
/// `messageAt` has it: what is wrong; what to do.
class InputError : public std::runtime_error {
public:
    InputError(const Place& place, const std::string& sentence)
        : std::runtime_error(messageAt(place, sentence)), place_(place) {}

    [[nodiscard]] const Place& place() const { return place_; }

private:
    Place place_;
};

}  // namespace psrender
