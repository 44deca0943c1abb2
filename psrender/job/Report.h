#pragma once

#include "psrender/job/PageFacts.h"

#include <cstdint>
#include <string>
#include <vector>

namespace psrender {

/// How the facts of a job are told.
enum class ReportForm : std::uint8_t { none, text, json };

/// The facts of all pages: lines to be read, or one JSON array with an object a page. Never
/// called with `none`.
std::string reportOf(const std::vector<PageFacts>& pages, ReportForm form);

}  // namespace psrender
