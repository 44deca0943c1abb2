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
    return decode(found_[bytes.identity()], bytes, name);
}

const UprightImage& ImageStore::fromBytes(std::string_view bytes, const std::string& name) {
    const auto [entry, isNew] = found_.try_emplace(identityOf(bytes));
    return decode(entry->second, isNew ? spool_.add(bytes) : EncodedImage(), name);
}

const UprightImage& ImageStore::decode(Found& entry, const EncodedImage& bytes,
                                       const std::string& name) {
    if (auto* image = std::get_if<UprightImage>(&entry); image != nullptr && !image->image) {
        try {
            const auto file = FileImage::make(bytes, name, mostPixels_, last_);
            decodedPixels_ += static_cast<std::uint64_t>(file->width()) *
                              static_cast<std::uint64_t>(file->getPixelSize().height);
            entry = turnedUpright(file);
        } catch (const ImageError& error) {
            entry = std::string(error.what());
        }
    }
    if (const auto* problem = std::get_if<std::string>(&entry))
        throw ImageError(*problem);
    return std::get<UprightImage>(entry);
}

}  // namespace psrender::image
