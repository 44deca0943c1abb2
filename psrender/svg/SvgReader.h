#pragma once

#include "psrender/base/InputError.h"
#include "psrender/base/Warnings.h"
#include "psrender/scene/DisplayList.h"
#include "psrender/svg/image/ImageAccess.h"
#include "psrender/svg/values/ReadingLimits.h"
#include "psrender/svg/values/ReadingWishes.h"

#include <string>
#include <string_view>

namespace psrender::svg {

/// Reads one SVG document (SVG 1.1 with CSS presentation properties) into a page.
///
/// The page has the drawing's own size: width and height of the outermost `svg` element in
/// points at 96 px an inch, else its viewBox, else the box around what is drawn. Drawings of more
/// than 14400 points are scaled down to that. An element that is to be shown alone has the page
/// that its ink needs, in the place and with the styles that it has in the drawing. Elements that
/// the reader does not know are left out and counted in `warnings`.
///
/// `text` is the whole document in UTF-8 (or UTF-16 with a byte order mark); `name` is what
/// messages call it. Throws `InputError` for what is no SVG, is cut short, or asks for more
/// than `limits` or the stated limits of nesting. Reads no file and no address, but for the images
/// that `images` allows.
scene::Page readSvg(std::string_view text, const std::string& name, Warnings& warnings,
                    const ImageAccess& images = {}, const ReadingLimits& limits = {},
                    const ReadingWishes& wishes = {});

}  // namespace psrender::svg
