#pragma once

#include "psrender/job/join/LineReader.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace psrender::join {

/// A resource of a document's set-up.
struct Resource {
    std::string kind;  ///< font, form, pattern
    std::string name;
    std::uint64_t begin = 0;  ///< of its lines in the file
    std::uint64_t end = 0;
};

/// What stands before the pages of a document that `psrender` made.
struct PartHead {
    std::vector<std::string> comments;  ///< of the header, without their ends
    std::string prolog;                 ///< lines of its procedure set
    std::string requests;               ///< lines that are for the whole document
    std::vector<Resource> resources;
    std::uint64_t pages = 0;  ///< where the first one begins
};

/// Raises `InputError` for what is no such document or is cut off, and `Core::IOException`.
PartHead readHead(const std::string& name, LineReader& file);

}  // namespace psrender::join
