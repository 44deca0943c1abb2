#include "Images/ImageStore.h"

#include "Images/ImageError.h"
#include "Images/internal/FileImage.h"

#include <xxhash.h>

#include <array>
#include <map>
#include <utility>
#include <variant>

namespace Images {

using Drawing::Matrix;

namespace {

/// What turns stored pictures upright, by the number that cameras write: from 1.
Matrix orientation(int number) {
    static const std::array<Matrix, 8> all{
        Matrix{1, 0, 0, 1, 0, 0},   Matrix{-1, 0, 0, 1, 1, 0}, Matrix{-1, 0, 0, -1, 1, 1},
        Matrix{1, 0, 0, -1, 0, 1},  Matrix{0, 1, 1, 0, 0, 0},  Matrix{0, 1, -1, 0, 1, 0},
        Matrix{0, -1, -1, 0, 1, 1}, Matrix{0, -1, 1, 0, 0, 1},
    };
    return all[static_cast<std::size_t>(number - 1)];
}

UprightImage turnedUpright(const Core::SmartPtr<FileImage>& image) {
    const ImageFacts& facts = image->facts();
    const Matrix upright = orientation(facts.orientation);
    UprightImage result{image,
                        upright,
                        facts.orientation,
                        static_cast<double>(facts.size.width),
                        static_cast<double>(facts.size.height),
                        facts.horizontalResolution,
                        facts.verticalResolution,
                        facts.isProfileIgnored};
    if (upright.getScaleX() == 0) {
        std::swap(result.width, result.height);
        std::swap(result.horizontalResolution, result.verticalResolution);
    }
    return result;
}

std::string identityOf(std::string_view bytes) {
    const XXH128_hash_t hash = XXH3_128bits(bytes.data(), bytes.size());
    return "bytes:" + std::to_string(hash.high64) + "." + std::to_string(hash.low64);
}

}  // namespace

class ImageStore::Files {
public:
    explicit Files(std::uint64_t mostPixels) : mostPixels_(mostPixels) {}

    const UprightImage& fromFile(const std::string& path, const std::string& name);
    const UprightImage& fromBytes(std::string_view bytes, const std::string& name);

    [[nodiscard]] std::uint64_t decodedPixels() const { return decodedPixels_; }
    [[nodiscard]] std::uint64_t mostPixels() const { return mostPixels_; }

private:
    using Found = std::variant<UprightImage, std::string>;  ///< the image, or what is wrong

    const Found& keep(const std::string& identity, const ImageBytes& bytes,
                      const std::string& name);
    Found decode(const ImageBytes& bytes, const std::string& name);
    static const UprightImage& take(const Found& found);

    std::uint64_t mostPixels_;
    std::uint64_t decodedPixels_ = 0;
    std::shared_ptr<LastDecoder> last_ = std::make_shared<LastDecoder>();
    Spool spool_;
    std::map<std::string, Found> found_;
};

const UprightImage& ImageStore::Files::fromFile(const std::string& path, const std::string& name) {
    const ImageBytes bytes = ImageBytes::inFile(path);
    const auto known = found_.find(bytes.identity());
    return take(known != found_.end() ? known->second : keep(bytes.identity(), bytes, name));
}

const UprightImage& ImageStore::Files::fromBytes(std::string_view bytes, const std::string& name) {
    const std::string identity = identityOf(bytes);
    const auto known = found_.find(identity);
    return take(known != found_.end() ? known->second : keep(identity, spool_.add(bytes), name));
}

/// What the system took away is not kept, so that it is asked for again.
const ImageStore::Files::Found& ImageStore::Files::keep(const std::string& identity,
                                                        const ImageBytes& bytes,
                                                        const std::string& name) {
    return found_.emplace(identity, decode(bytes, name)).first->second;
}

ImageStore::Files::Found ImageStore::Files::decode(const ImageBytes& bytes,
                                                   const std::string& name) {
    try {
        const auto file = FileImage::make(bytes, name, mostPixels_, last_);
        decodedPixels_ += static_cast<std::uint64_t>(file->width()) *
                          static_cast<std::uint64_t>(file->getPixelSize().height);
        return turnedUpright(file);
    } catch (const ImageError& error) {
        return std::string(error.what());
    }
}

const UprightImage& ImageStore::Files::take(const Found& found) {
    if (const auto* problem = std::get_if<std::string>(&found))
        throw ImageError(*problem);
    return std::get<UprightImage>(found);
}

ImageStore::ImageStore(std::uint64_t mostPixels) : files_(std::make_unique<Files>(mostPixels)) {}

ImageStore::~ImageStore() = default;

const UprightImage& ImageStore::fromFile(const std::string& path, const std::string& name) {
    return files_->fromFile(path, name);
}

const UprightImage& ImageStore::fromBytes(std::string_view bytes, const std::string& name) {
    return files_->fromBytes(bytes, name);
}

std::uint64_t ImageStore::decodedPixels() const {
    return files_->decodedPixels();
}

std::uint64_t ImageStore::mostPixels() const {
    return files_->mostPixels();
}

}  // namespace Images
