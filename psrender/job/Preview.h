#pragma once

#include <string>

namespace psrender {

/// Renders every page of `document` to PREFIX-1.png, PREFIX-2.png ... through the Ghostscript
/// installed. Raises `std::runtime_error` with one sentence if there is none or it fails.
void renderPreview(const std::string& document, const std::string& prefix, int dotsPerInch);

}  // namespace psrender
