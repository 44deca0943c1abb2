#pragma once

#include "Core/SmartPtr.h"
#include "Print/ColorConverter.h"

#include <string>

namespace psrender {

/// Brings all colours of a document to the device that an ICC profile (ISO 15076-1) describes,
/// from sRGB, grey with sRGB's tones, and, by way of the device formulas, CMYK. Raises
/// `std::runtime_error` for a file that holds no profile of a grey, RGB or CMYK device.
Core::SmartPtr<Drawing::Print::ColorConverter> converterTo(const std::string& profileFile);

}  // namespace psrender
