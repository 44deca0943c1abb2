#pragma once

#include "Images/ImageStore.h"
#include "psrender/svg/image/ImageAccess.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

/// Finds the images that a drawing refers to: in the reference itself, or in files beside the
/// drawing. Nothing else is ever opened: no network, no other folders.
class ImageLinks {
public:
    ImageLinks(ImageAccess access, Warnings& warnings);

    /// Null, and counted in the warnings, for what is left out. The text behind `address` must
    /// outlive the links. Throws `Images::ImageLost`, whose `what()` is a sentence here.
    const Images::UprightImage* find(std::string_view address);

    /// The same for the picture that a font has for a letter.
    const Images::UprightImage* findLetter(std::string_view bytes);
    /// Where the file of this name beside the drawing lies. Throws `Images::ImageError` for one
    /// that is not there or lies elsewhere, and `Images::ImageLost`.
    [[nodiscard]] std::string pathOf(const std::string& name) const;
    /// The text of a drawing that is linked to, or null if it is no drawing. The same holds for it
    /// as for images.
    const std::string* findDrawing(std::string_view address);

private:
    std::optional<std::string> loadDrawing(std::string_view address) const;
    const Images::UprightImage* load(std::string_view address);
    const Images::UprightImage& loadFile(std::string_view address) const;

    ImageAccess access_;
    Warnings& warnings_;
    std::unordered_map<std::string_view, const Images::UprightImage*> known_;
    std::unordered_map<std::string_view, std::optional<std::string>> drawings_;
    std::uint64_t mostPixels_;  ///< that the store may have decoded in the end
};

}  // namespace psrender::svg
