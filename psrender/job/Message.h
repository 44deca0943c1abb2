#pragma once

#include <string>
#include <string_view>

namespace psrender {

/// `text` with every control character and every byte that is no UTF-8 written as `\x1B`, so that
/// a file name cannot command the terminal that shows it.
std::string printable(std::string_view text);

/// Shows the user a sentence on standard error, in a line of its own.
void tell(std::string_view sentence);

}  // namespace psrender
