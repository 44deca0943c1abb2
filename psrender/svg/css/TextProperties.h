#pragma once

#include "psrender/svg/css/ComputedStyle.h"

#include <string_view>

/// Properties of fonts and text. Each sets its part of `style` and answers false, with `style` as
/// it was, for a text that is none of its values.
namespace psrender::svg::textProperties {

bool applyAnchor(std::string_view text, ComputedStyle& style);
bool applyBaseline(std::string_view text, ComputedStyle& style);
bool applyBaselineShift(std::string_view text, ComputedStyle& style);
bool applyDecoration(std::string_view text, ComputedStyle& style);
bool applyDirection(std::string_view text, ComputedStyle& style);
bool applyFamily(std::string_view text, ComputedStyle& style);
/// The shorthand: style and weight, size and line height, families.
bool applyFont(std::string_view text, ComputedStyle& style);
/// Relative sizes go by the parent's, which is what `style` holds until now.
bool applySize(std::string_view text, ComputedStyle& style);
bool applySlant(std::string_view text, ComputedStyle& style);
bool applyWeight(std::string_view text, ComputedStyle& style);
bool applyKerning(std::string_view text, ComputedStyle& style);
bool applyWhiteSpace(std::string_view text, ComputedStyle& style);
bool applyLetterSpacing(std::string_view text, ComputedStyle& style);
bool applyWordSpacing(std::string_view text, ComputedStyle& style);

}  // namespace psrender::svg::textProperties
