#pragma once

#include "Images/ImageStore.h"
#include "psrender/base/Warnings.h"
#include "psrender/scene/DisplayList.h"
#include "psrender/svg/SvgReader.h"

#include <string>
#include <utility>

namespace psrender {

/// Reads inputs of every kind; what one is, its first bytes tell.
class PageReader {
public:
    struct Input {
        scene::Page page;
        bool isPicture = false;  ///< an image that is the page
    };

    /// Images larger than `mostPixels` and drawings larger than `limits` are refused.
    PageReader(std::uint64_t mostPixels, const svg::ReadingLimits& limits,
               svg::ReadingWishes wishes)
        : images_(mostPixels), limits_(limits), wishes_(std::move(wishes)) {}

    /// `input` is the name of a file, or "-" for standard input. Throws `InputError`.
    Input read(const std::string& input, Warnings& warnings);

private:
    Input readImageFile(const std::string& name, Warnings& warnings);
    Input readContent(const std::string& content, const std::string& name,
                      const std::string& folder, Warnings& warnings);

    Images::ImageStore images_;
    svg::ReadingLimits limits_;
    svg::ReadingWishes wishes_;
};

}  // namespace psrender
