#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace psrender::svg {

/// One operation of the property `filter`.
struct FilterOperation {
    std::string_view function;   ///< "url", "blur" and so on, as written
    std::string_view arguments;  ///< between its parentheses
    std::string_view text;       ///< the whole of it
};

/// The operations of a list; nothing if it is not one of known functions.
std::optional<std::vector<FilterOperation>> parseFilterList(std::string_view text);

}  // namespace psrender::svg
