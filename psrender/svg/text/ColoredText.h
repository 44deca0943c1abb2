#pragma once

#include "psrender/scene/DisplayList.h"

#include <string>
#include <vector>

namespace psrender::svg {

/// The picture that a font has for a letter.
struct LetterPicture {
    std::string png;
    scene::Affine toPage;  ///< from the square of side 1
};

/// A text as it looks in a font with colours of its own: texts one over the other, and pictures
/// over blanks that say what they show.
struct ColoredText {
    std::vector<scene::Text> texts;
    std::vector<LetterPicture> pictures;
    bool isSimplified = false;  ///< the font says more, such as gradients
};

/// `text` itself if its font has no colours for it.
ColoredText coloredText(const scene::Text& text);

}  // namespace psrender::svg
