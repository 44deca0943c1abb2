#pragma once

#include "psrender/svg/text/FontChooser.h"
#include "psrender/svg/text/TextContent.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace psrender::svg {

/// A piece of a text that is shaped as one: same span, font, script and direction.
struct TextSegment {
    std::size_t begin = 0;
    std::size_t end = 0;
    const ChosenFont* font = nullptr;
    std::uint8_t level = 0;  ///< of embedding; odd ones run from right to left
    bool isUpright = false;  ///< in vertical text
    bool isSmallCapital = false;
};

/// A piece of a text that an absolute position begins; it is anchored as a whole.
struct TextChunk {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::vector<TextSegment> segments;  ///< from left to right
};

/// The chunks of `content`, in reading order. Blanks and marks take the font of what they follow.
std::vector<TextChunk> splitIntoChunks(const TextContent& content, FontChooser& fonts);

}  // namespace psrender::svg
