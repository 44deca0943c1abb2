#pragma once

#include <string>
#include <vector>

namespace psrender {

/// Runs the interpreter without its own messages; whether it ended well. Raises
/// `std::runtime_error` where it is not installed: what `failure` says and what `remedy` offers.
bool runGhostscript(const std::vector<std::string>& arguments, const std::string& failure,
                    const std::string& remedy);

}  // namespace psrender
