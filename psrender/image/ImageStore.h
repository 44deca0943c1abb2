#pragma once

#include "psrender/image/FileImage.h"
#include "psrender/scene/Geometry.h"

#include <map>
#include <string>
#include <string_view>
#include <variant>

namespace psrender::image {

/// An image as a viewer shows it.
struct UprightImage {
    Core::SmartPtr<Drawing::Image> image;
    scene::Affine upright;  ///< from the stored to the shown picture, both the square of side 1
    double width = 0;       ///< pixels, as shown
    double height = 0;
    double horizontalResolution = 0;  ///< dots per inch, as shown; 0 if not told
    double verticalResolution = 0;
    bool isProfileIgnored = false;
};

/// Finds the images of a job, each decoded only once on the way, however often it is asked for.
class ImageStore {
public:
    explicit ImageStore(std::uint64_t mostPixels) : mostPixels_(mostPixels) {}

    /// `name` is for messages. Both throw `ImageError`, and again when asked for the same again,
    /// and `ImageLost`.
    const UprightImage& fromFile(const std::string& path, const std::string& name);
    const UprightImage& fromBytes(std::string_view bytes, const std::string& name);

    /// The pixels of all images that were decoded so far.
    [[nodiscard]] std::uint64_t decodedPixels() const { return decodedPixels_; }
    [[nodiscard]] std::uint64_t mostPixels() const { return mostPixels_; }

private:
    using Found = std::variant<UprightImage, std::string>;  ///< the image, or what is wrong

    const Found& keep(const std::string& identity, const EncodedImage& bytes,
                      const std::string& name);
    Found decode(const EncodedImage& bytes, const std::string& name);
    static const UprightImage& take(const Found& found);

    std::uint64_t mostPixels_;
    std::uint64_t decodedPixels_ = 0;
    std::shared_ptr<LastDecoder> last_ = std::make_shared<LastDecoder>();
    Spool spool_;
    std::map<std::string, Found> found_;
};

}  // namespace psrender::image
