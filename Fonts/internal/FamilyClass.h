#pragma once

#include "Core/String.h"

namespace Fonts {

/// The standard family that stands in for `family`, by words in its name: "Courier" for
/// typewriter faces, "Helvetica" for those without serifs, "Times" for those with; empty for a
/// name that tells nothing.
[[nodiscard]] Core::String standInFor(const Core::String& family);

}  // namespace Fonts
