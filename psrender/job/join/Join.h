#pragma once

#include "Core/Stream.h"

#include <string>
#include <vector>

namespace psrender::join {

/// Joins documents that `psrender` made into one, in their order, and writes that to `output`.
/// Fonts, forms and pictures that several parts define in the same way are there once; the pages
/// are copied as they are, a piece at a time. Title, author and what the printer is asked for are
/// the first part's; returns the parts that ask for something else.
///
/// Raises `InputError` for a part that is no such document, and `Core::IOException`.
std::vector<std::string> joinDocuments(const std::vector<std::string>& parts,
                                       Core::IO::Stream& output);

}  // namespace psrender::join
