#pragma once

#include <cstddef>
#include <string>

namespace psrender {

/// What messages call an input or output named "-".
inline constexpr const char* kStandardInput = "standard input";
inline constexpr const char* kStandardOutput = "standard output";

/// A drawing of this size is no drawing any more.
inline constexpr std::size_t kLargestInput = std::size_t{256} << 20;

/// The whole content of a file, or of the standard input for "-"; unpacked if it is packed by gzip
/// (.svgz). Raises `InputError` if it is missing, a folder, unreadable, empty, damaged, or larger
/// than `kLargestInput`.
std::string readInput(const std::string& name);

/// Up to `count` bytes from the beginning of a regular file; none for everything else, which is
/// left to `readInput`.
std::string readBeginning(const std::string& name, std::size_t count);

}  // namespace psrender
