#include "psrender/svg/text/FontFaces.h"

#include "Fonts/FontException.h"
#include "Fonts/FontManager.h"
#include "Images/ImageError.h"
#include "psrender/base/Warnings.h"
#include "psrender/svg/image/DataUri.h"
#include "psrender/svg/image/ImageLinks.h"
#include "psrender/svg/text/FontWish.h"
#include "psrender/svg/text/HeldFont.h"
#include "psrender/svg/values/Characters.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <utility>

namespace psrender::svg {

using Fonts::FontManager;

namespace {

constexpr std::size_t kMostFaces = 500;
/// Of all fonts of a drawing together, as they come.
constexpr std::size_t kMostBytes = 64 << 20;

}  // namespace

FontFaces::FontFaces(const std::vector<std::string_view>& blocks, const ImageLinks& links,
                     Warnings& warnings)
    : links_(links), warnings_(warnings), bytesLeft_(kMostBytes) {
    for (const std::string_view block : blocks) {
        if (faces_.size() == kMostFaces)
            warnings_.add("fonts behind the first 500 of a drawing are left out (@font-face)");
        else if (auto face = FontFaceRule::parse(block))
            faces_.push_back(std::move(*face));
    }
    std::ranges::reverse(faces_);
}

bool FontFaces::has(std::string_view family) const {
    return std::ranges::any_of(
        faces_, [&](const FontFaceRule& face) { return equalsIgnoringCase(face.family, family); });
}

std::vector<ChosenFont> FontFaces::find(std::string_view family, const TextStyle& style) {
    int best = std::numeric_limits<int>::max();
    for (const FontFaceRule& face : faces_)
        if (equalsIgnoringCase(face.family, family))
            best = std::min(best, face.distance(style));
    std::vector<ChosenFont> found;
    for (const FontFaceRule& face : faces_)
        if (equalsIgnoringCase(face.family, family) && face.distance(style) == best)
            if (auto font = open(face, style))
                found.push_back(std::move(*font));
    return found;
}

/// The first source that can be used.
std::optional<ChosenFont> FontFaces::open(const FontFaceRule& face, const TextStyle& style) {
    TextStyle nearest = style;
    nearest.weight = std::clamp(style.weight, face.lightest, face.boldest);
    for (const FontSource& source : face.sources) {
        auto font = source.isInstalled ? installed(source.address, nearest)
                                       : opened(source.address, nearest);
        if (!font)
            continue;
        font->ranges = face.ranges;
        return font;
    }
    return std::nullopt;
}

std::optional<ChosenFont> FontFaces::opened(std::string_view address, const TextStyle& style) {
    try {
        const auto [bytes, isNew] = read_.try_emplace(address.data());
        if (isNew)
            bytes->second = read(address);
        if (bytes->second.empty())
            return std::nullopt;
        const auto held = HeldFont::of(bytes->second, style);
        ChosenFont font = held->font();
        font.registration = held;
        return font;
    } catch (const Fonts::FontException& error) {
        warnings_.add("left out (@font-face): " + error.getMessage());
    } catch (const Images::ImageError& error) {
        warnings_.add(std::string("left out (@font-face): a font ") + error.what());
    } catch (const Images::ImageLost& error) {
        warnings_.add(std::string("left out (@font-face): a font ") + error.what());
    }
    return std::nullopt;
}

/// The bytes that an address stands for. Throws `Images::ImageError`.
std::string FontFaces::read(std::string_view address) {
    constexpr const char* kTooMuch = "comes after more than 64 MB of fonts; use smaller ones";
    if (equalsIgnoringCase(address.substr(0, 5), "data:")) {
        auto bytes = address.size() / 4 * 3 > bytesLeft_ ? std::nullopt : decodeDataUri(address);
        if (!bytes)
            throw Images::ImageError(address.size() / 4 * 3 > bytesLeft_
                                         ? kTooMuch
                                         : "has a damaged data address; embed it anew");
        bytesLeft_ -= std::min(bytesLeft_, bytes->size());
        return std::move(*bytes);
    }
    if (address.find("://") != std::string_view::npos)
        throw Images::ImageError("is not fetched; embed it, or put the file beside the drawing");
    const std::string path =
        links_.pathOf(percentDecoded(address.substr(0, address.find_first_of("?#"))));
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (error || size > bytesLeft_)
        throw Images::ImageError(error ? "cannot be read; check its name" : kTooMuch);
    std::ifstream file(path, std::ios::binary);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (!file.read(bytes.data(), static_cast<std::streamsize>(size)))
        throw Images::ImageError("cannot be read; check the file");
    bytesLeft_ -= bytes.size();
    return bytes;
}

std::optional<ChosenFont> FontFaces::installed(std::string_view name, const TextStyle& style) {
    ChosenFont font{Core::String(name), style.weight, style.slant, nullptr};
    font.program = FontManager::findFamily(font.ofSize(1));
    if (!font.program)
        font.program = FontManager::findInstalledFamily(wishOf(font, style));
    if (!font.program)
        return std::nullopt;
    giveName(font);
    return font;
}

}  // namespace psrender::svg
