#include "psrender/image/ImageStore.h"

#include "psrender/image/ImageError.h"

#include <xxhash.h>

#include <array>
#include <utility>

namespace psrender::image {

using scene::Affine;

namespace {

/// What turns stored pictures upright, by the number that cameras write.
constexpr std::array<Affine, 8> kOrientations{
    Affine{1, 0, 0, 1, 0, 0},   Affine{-1, 0, 0, 1, 1, 0}, Affine{-1, 0, 0, -1, 1, 1},
    Affine{1, 0, 0, -1, 0, 1},  Affine{0, 1, 1, 0, 0, 0},  Affine{0, 1, -1, 0, 1, 0},
    Affine{0, -1, -1, 0, 1, 1}, Affine{0, -1, 1, 0, 0, 1},
};

UprightImage turnedUpright(const Core::SmartPtr<FileImage>& image) {
    const ImageFacts& facts = image->facts();
    const Affine& upright = kOrientations[static_cast<std::size_t>(facts.orientation - 1)];
    UprightImage result{image,
                        upright,
                        static_cast<double>(facts.size.width),
                        static_cast<double>(facts.size.height),
                        facts.horizontalResolution,
                        facts.verticalResolution,
                        facts.isProfileIgnored};
    if (upright.a == 0) {
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

const UprightImage& ImageStore::fromFile(const std::string& path, const std::string& name) {
    const EncodedImage bytes = EncodedImage::inFile(path);
    const auto known = found_.find(bytes.identity());
    return take(known != found_.end() ? known->second : keep(bytes.identity(), bytes, name));
}

const UprightImage& ImageStore::fromBytes(std::string_view bytes, const std::string& name) {
    const std::string identity = identityOf(bytes);
    const auto known = found_.find(identity);
    return take(known != found_.end() ? known->second : keep(identity, spool_.add(bytes), name));
}

/// What the system took away is not kept, so that it is asked for again.
const ImageStore::Found& ImageStore::keep(const std::string& identity, const EncodedImage& bytes,
                                          const std::string& name) {
    return found_.emplace(identity, decode(bytes, name)).first->second;
}

ImageStore::Found ImageStore::decode(const EncodedImage& bytes, const std::string& name) {
    try {
        const auto file = FileImage::make(bytes, name, mostPixels_, last_);
        decodedPixels_ += static_cast<std::uint64_t>(file->width()) *
                          static_cast<std::uint64_t>(file->getPixelSize().height);
        return turnedUpright(file);
    } catch (const ImageError& error) {
        return std::string(error.what());
    }
}

const UprightImage& ImageStore::take(const Found& found) {
    if (const auto* problem = std::get_if<std::string>(&found))
        throw ImageError(*problem);
    return std::get<UprightImage>(found);
}

}  // namespace psrender::image
