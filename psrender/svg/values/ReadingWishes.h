#pragma once

#include <string>
#include <vector>

namespace psrender::svg {

/// What a user wants to see of a drawing beside what its author wrote.
struct ReadingWishes {
    std::string element{};     ///< the id of the only element to be drawn; empty means all
    std::string styleSheet{};  ///< weaker than the drawing's own sheets, but for what is important
    std::vector<std::string> languages{};  ///< that are understood; none means English
};

}  // namespace psrender::svg
