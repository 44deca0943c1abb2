#pragma once

#include "psrender/svg/css/ComputedStyle.h"

#include <string_view>

/// Properties of fonts and text. Each sets its part of `style` and answers false, with `style` as
/// it was, for a text that is none of its values.
namespace psrender::svg::textProperties {

bool applyFamily(std::string_view text, ComputedStyle& style);
/// The shorthand: style, weight, capitals and width, size and line height, families.
bool applyFont(std::string_view text, ComputedStyle& style);
/// Relative sizes go by the parent's, which is what `style` holds until now.
bool applySize(std::string_view text, ComputedStyle& style);
bool applySlant(std::string_view text, ComputedStyle& style);
bool applyWeight(std::string_view text, ComputedStyle& style);
bool applyStretch(std::string_view text, ComputedStyle& style);
/// Of all that variants of a font are, small capitals and ligatures.
bool applyCapitals(std::string_view text, ComputedStyle& style);
bool applyKerning(std::string_view text, ComputedStyle& style);
bool applyLigatures(std::string_view text, ComputedStyle& style);
bool applyFeatures(std::string_view text, ComputedStyle& style);
bool applyVariations(std::string_view text, ComputedStyle& style);

bool applyAnchor(std::string_view text, ComputedStyle& style);
/// Of the element alone.
bool applyAlignment(std::string_view text, ComputedStyle& style);
bool applyBaseline(std::string_view text, ComputedStyle& style);
bool applyBaselineShift(std::string_view text, ComputedStyle& style);
bool applyBidi(std::string_view text, ComputedStyle& style);
/// The shorthand: lines, their shape and colour.
bool applyDecoration(std::string_view text, ComputedStyle& style);
bool applyDecorationLine(std::string_view text, ComputedStyle& style);
bool applyDecorationColor(std::string_view text, ComputedStyle& style);
bool applyDecorationShape(std::string_view text, ComputedStyle& style);
bool applyDirection(std::string_view text, ComputedStyle& style);
bool applyOrientation(std::string_view text, ComputedStyle& style);
bool applyLineHeight(std::string_view text, ComputedStyle& style);
bool applyWhiteSpace(std::string_view text, ComputedStyle& style);
bool applyWritingMode(std::string_view text, ComputedStyle& style);
bool applyLetterSpacing(std::string_view text, ComputedStyle& style);
bool applyWordSpacing(std::string_view text, ComputedStyle& style);

/// Adds the lines that the element itself asks for to those of the elements around it, painted as
/// it is. To be called when all of its properties are known. A line goes on within children.
void collectDecorations(ComputedStyle& style);

}  // namespace psrender::svg::textProperties
