#pragma once

#include "Drawing/Image.h"
#include "Drawing/Matrix.h"
#include "Images/Export.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace Images {

/// An image file as a viewer shows it.
struct UprightImage {
    Core::SmartPtr<Drawing::Image> image;  ///< as stored
    /// From the stored to the shown picture, both the square of side 1 with y downwards.
    Drawing::Matrix upright;
    int orientation = 1;  ///< the same, 1 (as stored) to 8 as cameras count (Exif 2.32, 4.6.4)
    double width = 0;     ///< pixels, as shown
    double height = 0;
    double horizontalResolution = 0;  ///< dots per inch, as shown; 0 if not told
    double verticalResolution = 0;
    /// Whether the file has a colour profile that cannot be used: the colours stand as they are.
    bool isProfileIgnored = false;
};

/// Finds the images of a job, each decoded only once on the way, however often it is asked for.
/// The images outlive the store. They keep no pixels: each is decoded again, row by row, when a
/// document writes it. Used by one thread at a time, and so are its images.
class IMAGES_API ImageStore {
public:
    /// Images of more than `mostPixels` pixels are refused.
    explicit ImageStore(std::uint64_t mostPixels);
    ImageStore(const ImageStore&) = delete;
    ImageStore& operator=(const ImageStore&) = delete;
    ~ImageStore();

    /// `name` is for messages. Both throw `ImageError`, and again when asked for the same again,
    /// and `ImageLost`. What they return belongs to the store.
    const UprightImage& fromFile(const std::string& path, const std::string& name);
    const UprightImage& fromBytes(std::string_view bytes, const std::string& name);

    /// The pixels of all images that were decoded so far.
    [[nodiscard]] std::uint64_t decodedPixels() const;
    [[nodiscard]] std::uint64_t mostPixels() const;

private:
    class Files;
    std::unique_ptr<Files> files_;
};

}  // namespace Images
