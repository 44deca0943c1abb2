#pragma once

#include "psrender/svg/css/ComputedStyle.h"
#include "psrender/svg/xml/ElementKind.h"

namespace psrender {
class Warnings;
}

namespace psrender::svg {

/// Counts what the style of such an element asks for and the reader leaves out.
void warnOfLeftOut(const ComputedStyle& style, ElementKind kind, Warnings& warnings);

}  // namespace psrender::svg
