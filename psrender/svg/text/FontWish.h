#pragma once

#include "Fonts/FontManager.h"
#include "psrender/svg/css/TextStyle.h"
#include "psrender/svg/text/ChosenFont.h"

namespace psrender::svg {

/// What text of this style asks of an installed font that `font` describes.
[[nodiscard]] Fonts::FontManager::Wish wishOf(const ChosenFont& font, const TextStyle& style);

/// A font that was not found by its family is given its own name, by which the back end finds it
/// again.
void giveName(ChosenFont& font);

}  // namespace psrender::svg
