#include "Fonts/UnicodeRanges.h"

#include <hb.h>

namespace Fonts {

namespace {

constexpr char16_t kFirstMark = 0x0300;

}  // namespace

bool UnicodeRanges::isMark(char16_t unit) {
    if (unit < kFirstMark)
        return false;
    switch (hb_unicode_general_category(hb_unicode_funcs_get_default(), unit)) {
        case HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK:
        case HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK:
        case HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK:
            return true;
        default:
            return false;
    }
}

}  // namespace Fonts
