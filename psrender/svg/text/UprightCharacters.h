#pragma once

namespace psrender::svg {

/// Whether a character stands upright in vertical text (Unicode Annex 50), as those of East Asian
/// scripts and many signs do; letters of other scripts lie on their side.
bool standsUpright(char32_t code);

}  // namespace psrender::svg
