#pragma once

#include "Fonts/Export.h"

namespace Fonts {

/// What Unicode says of a UTF-16 unit.
class FONTS_API UnicodeRanges {
public:
    /// Whether the unit is a mark (general category Mn, Mc or Me). Half a surrogate pair is none.
    static bool isMark(char16_t unit);
};

}  // namespace Fonts
