#include "psrender/svg/image/ImageLinks.h"

#include "Core/internal/Absence.h"
#include "Images/ImageError.h"
#include "psrender/base/Warnings.h"
#include "psrender/svg/image/DataUri.h"
#include "psrender/svg/values/Characters.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace psrender::svg {

using Images::ImageError;
using Images::ImageLost;
using Images::UprightImage;
namespace fs = std::filesystem;

namespace {

/// So many times the largest image may all images of a drawing together be.
constexpr std::uint64_t kLargestSum = 10;
constexpr std::size_t kLongestName = 100;
constexpr std::size_t kLargestDrawing = 32'000'000;

/// A name as messages show it, which is of bounded length.
std::string shortened(std::string_view name) {
    const std::string text(name.substr(0, kLongestName));
    return name.size() <= kLongestName ? text : text + "...";
}

/// A scheme, as in "http:", before any slash.
bool isAddress(std::string_view text) {
    const std::size_t end = text.find_first_of(":/?#");
    return end != std::string_view::npos && end > 0 && text[end] == ':';
}

bool startsLikeXml(std::string_view bytes) {
    const std::string_view start = trimmed(bytes.substr(0, 1000));
    return start.starts_with("<") || start.starts_with("\xEF\xBB\xBF<");
}

bool looksLikeSvg(std::string_view bytes) {
    return startsLikeXml(bytes) || bytes.starts_with("\x1F\x8B");
}

/// The file system may say that there is nothing, but it must say something.
void requireAnswer(const std::error_code& error) {
    if (error && !Core::IO::isAbsence(error.value()))
        throw ImageLost("cannot be found (" + error.message() + "); check the disk and try again");
}

bool liesWithin(const fs::path& path, const fs::path& folder) {
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first ==
           folder.end();
}

}  // namespace

ImageLinks::ImageLinks(ImageAccess access, Warnings& warnings)
    : access_(std::move(access)),
      warnings_(warnings),
      mostPixels_(access_.store == nullptr ? 0
                                           : access_.store->decodedPixels() +
                                                 kLargestSum * access_.store->mostPixels()) {}

const UprightImage* ImageLinks::find(std::string_view address) {
    if (access_.store == nullptr) {
        warnings_.add("images are left out (<image>)");
        return nullptr;
    }
    const auto [entry, isNew] = known_.try_emplace(address, nullptr);
    if (isNew)
        entry->second = load(address);
    return entry->second;
}

const UprightImage* ImageLinks::findLetter(std::string_view bytes) {
    if (access_.store == nullptr || access_.store->decodedPixels() > mostPixels_) {
        warnings_.add("pictures of letters are left out (<text>)");
        return nullptr;
    }
    try {
        return &access_.store->fromBytes(bytes, "the picture of a letter");
    } catch (const ImageError& error) {
        warnings_.add(std::string("left out (<text>): the picture of a letter ") + error.what());
        return nullptr;
    }
}

const UprightImage* ImageLinks::load(std::string_view address) {
    const bool isData = equalsIgnoringCase(address.substr(0, 5), "data:");
    const std::string name = isData ? "an embedded image" : shortened(address);
    try {
        if (access_.store->decodedPixels() > mostPixels_)
            throw ImageError(
                "comes after more than ten times the pixels of --max-pixels; split "
                "the drawing or raise the limit");
        if (!isData)
            return &loadFile(address);
        const auto bytes = decodeDataUri(address);
        if (!bytes)
            throw ImageError("has a damaged data address; embed it anew");
        if (looksLikeSvg(*bytes))
            throw ImageError("is a compressed drawing; embed it as it is");
        return &access_.store->fromBytes(*bytes, name);
    } catch (const ImageError& error) {
        warnings_.add("left out (<image>): " + name + " " + error.what());
        return nullptr;
    } catch (const ImageLost& error) {
        throw ImageLost(name + " " + error.what());
    }
}

const std::string* ImageLinks::findDrawing(std::string_view address) {
    const auto [entry, isNew] = drawings_.try_emplace(address);
    if (isNew)
        entry->second = loadDrawing(address);
    return entry->second ? &*entry->second : nullptr;
}

/// What cannot be read is no drawing, so it is told of as an image.
std::optional<std::string> ImageLinks::loadDrawing(std::string_view address) const {
    if (equalsIgnoringCase(address.substr(0, 5), "data:")) {
        auto bytes = decodeDataUri(address);
        return bytes && startsLikeXml(*bytes) ? std::move(bytes) : std::nullopt;
    }
    const std::string name = percentDecoded(address.substr(0, address.find_first_of("?#")));
    if (isAddress(address) || access_.store == nullptr || !name.ends_with(".svg"))
        return std::nullopt;
    try {
        std::ifstream file(pathOf(name), std::ios::binary);
        std::string text(kLargestDrawing, '\0');
        file.read(text.data(), kLargestDrawing);
        text.resize(static_cast<std::size_t>(file.gcount()));
        return startsLikeXml(text) && file.eof() ? std::optional(std::move(text)) : std::nullopt;
    } catch (const ImageError&) {
        return std::nullopt;
    }
}

const UprightImage& ImageLinks::loadFile(std::string_view address) const {
    if (isAddress(address))
        throw ImageError("is not fetched; embed it, or put the file beside the drawing");
    const std::string name = percentDecoded(address.substr(0, address.find_first_of("?#")));
    return access_.store->fromFile(pathOf(name), name);
}

/// Links in the file system are followed first, so that none leads out of the folder.
std::string ImageLinks::pathOf(const std::string& name) const {
    const fs::path relative(name);
    const bool climbs = std::find(relative.begin(), relative.end(), "..") != relative.end();
    if (access_.folder.empty() || relative.is_absolute() || climbs || name.empty() ||
        name.find('\0') != std::string::npos)
        throw ImageError("is not in the folder of the drawing; put it there or embed it");
    std::error_code error;
    const fs::path folder = fs::canonical(access_.folder, error);
    requireAnswer(error);
    if (error)
        throw ImageError("is not in the folder of the drawing; put it there or embed it");
    const fs::path path = fs::canonical(folder / relative, error);
    requireAnswer(error);
    if (error)
        throw ImageError("cannot be read (" + error.message() + "); check its name");
    if (!liesWithin(path, folder))
        throw ImageError("is not in the folder of the drawing; put it there or embed it");
    return path.string();
}

}  // namespace psrender::svg
