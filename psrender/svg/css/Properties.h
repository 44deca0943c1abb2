#pragma once

#include "psrender/svg/css/ComputedStyle.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace psrender::svg {

/// The number of properties that the reader knows; they are counted from 0 in the order of
/// their names.
constexpr std::size_t kPropertyCount = 50;

/// The property that lengths in font units depend on, so it is to be applied first.
extern const std::size_t fontSizeProperty;
/// The shorthand and the properties that it sets, too.
extern const std::size_t fontProperty;
extern const std::array<std::size_t, 4> fontLonghands;

std::optional<std::size_t> findProperty(std::string_view name);

/// Sets one property of `style` from its text; "inherit" takes it from `parent`. False if
/// the text is no value of the property, which then stays as it was.
bool applyProperty(std::size_t property, std::string_view text, ComputedStyle& style,
                   const ComputedStyle& parent);

}  // namespace psrender::svg
