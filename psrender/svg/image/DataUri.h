#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace psrender::svg {

/// Text with its %XX replaced by the bytes that they stand for; other % stay.
std::string percentDecoded(std::string_view text);

/// The bytes in a "data:" address, whatever their type; nothing if it is none or damaged.
std::optional<std::string> decodeDataUri(std::string_view address);

}  // namespace psrender::svg
