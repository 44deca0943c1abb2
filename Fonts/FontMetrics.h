#pragma once

#include "Core/String.h"

namespace Fonts {

/// What a font says of itself. Lengths in 1/1000 em, y upwards from the baseline.
struct FontMetrics {
    Core::String postScriptName;  ///< as findfont takes it: "Helvetica-Bold"
    Core::String familyName;
    Core::String fullName;
    float ascent = 0;
    float descent = 0;  ///< below the baseline, hence negative as a rule
    float capHeight = 0;
    float xHeight = 0;
    float underlinePosition = 0;
    float underlineThickness = 0;
    float italicAngle = 0;  ///< degrees, counter-clockwise from the vertical
};

}  // namespace Fonts
