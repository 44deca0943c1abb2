#pragma once

namespace psrender::svg {

/// The capital of a small letter of the scripts that have both; anything else is itself, and so is
/// a letter whose capital is more than one.
char32_t upperCase(char32_t code);

}  // namespace psrender::svg
