#include "psrender/svg/text/FontFaces.h"

#include "Fonts/FontException.h"
#include "Fonts/FontManager.h"
#include "psrender/base/Warnings.h"
#include "psrender/image/ImageError.h"
#include "psrender/svg/css/Declarations.h"
#include "psrender/svg/image/DataUri.h"
#include "psrender/svg/image/ImageLinks.h"
#include "psrender/svg/text/FontWish.h"
#include "psrender/svg/text/HeldFont.h"
#include "psrender/svg/values/Characters.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <utility>

namespace psrender::svg {

using Drawing::FontSlant;
using Fonts::FontManager;

namespace {

constexpr std::size_t kMostFaces = 500;
/// Of all fonts of a drawing together, as they come.
constexpr std::size_t kMostBytes = 64 << 20;

std::string_view unquoted(std::string_view text) {
    text = trimmed(text);
    if (text.size() > 1 && (text.front() == '"' || text.front() == '\'') &&
        text.back() == text.front())
        text = text.substr(1, text.size() - 2);
    return text;
}

/// Takes the text up to the next of `separators` off `list`.
std::string_view takePart(std::string_view& list, std::string_view separators) {
    const std::size_t length = lengthUpTo(list, separators);
    const std::string_view part = trimmed(list.substr(0, length));
    list.remove_prefix(std::min(length + 1, list.size()));
    return part;
}

/// What stands in the parentheses of "name(...)"; nothing for another function.
std::optional<std::string_view> argumentOf(std::string_view text, std::string_view name) {
    const std::size_t open = name.size();
    if (text.size() <= open || !equalsIgnoringCase(text.substr(0, open), name) || text[open] != '(')
        return std::nullopt;
    const std::size_t close = text.find(')', open);
    if (close == std::string_view::npos)
        return std::nullopt;
    return unquoted(text.substr(open + 1, close - open - 1));
}

int parseWeight(std::string_view text) {
    int weight = Drawing::Font::kRegular;
    if (equalsIgnoringCase(text, "bold"))
        return Drawing::Font::kBold;
    std::from_chars(text.data(), text.data() + text.size(), weight);
    return std::clamp(weight, 1, 1000);
}

/// "U+26", "U+0-7F" or "U+4??".
std::optional<CharacterRange> parseRange(std::string_view text) {
    if (text.size() < 3 || toLower(text[0]) != 'u' || text[1] != '+')
        return std::nullopt;
    text.remove_prefix(2);
    const std::size_t dash = text.find('-');
    std::string first(text.substr(0, dash));
    std::string last(dash == std::string_view::npos ? text : text.substr(dash + 1));
    std::ranges::replace(first, '?', '0');
    std::ranges::replace(last, '?', 'F');
    std::uint32_t from = 0;
    std::uint32_t to = 0;
    const auto read = [](const std::string& digits, std::uint32_t& value) {
        constexpr int kHexadecimal = 16;
        const char* end = digits.data() + digits.size();
        return std::from_chars(digits.data(), end, value, kHexadecimal).ptr == end;
    };
    if (!read(first, from) || !read(last, to))
        return std::nullopt;
    return CharacterRange{from, to};
}

}  // namespace

FontFaces::FontFaces(const std::vector<std::string_view>& blocks, const ImageLinks& links,
                     Warnings& warnings)
    : links_(links), warnings_(warnings), bytesLeft_(kMostBytes) {
    for (const std::string_view block : blocks) {
        if (faces_.size() == kMostFaces)
            warnings_.add("fonts behind the first 500 of a drawing are left out (@font-face)");
        else if (auto face = parse(block))
            faces_.push_back(std::move(*face));
    }
    std::ranges::reverse(faces_);
}

std::optional<FontFaces::Face> FontFaces::parse(std::string_view block) {
    Face face;
    while (!block.empty()) {
        std::string_view value = takePart(block, ";");
        const std::string_view name = takePart(value, ":");
        value = trimmed(value);
        if (equalsIgnoringCase(name, "font-family"))
            face.family = unquoted(value);
        else if (equalsIgnoringCase(name, "src"))
            face.sources = value;
        else if (equalsIgnoringCase(name, "font-style"))
            face.isSlanted = !value.empty() && !equalsIgnoringCase(value, "normal");
        else if (equalsIgnoringCase(name, "font-weight")) {
            face.lightest = parseWeight(takePart(value, " "));
            face.boldest = value.empty() ? face.lightest : parseWeight(trimmed(value));
        } else if (equalsIgnoringCase(name, "unicode-range"))
            while (!value.empty())
                if (const auto range = parseRange(takePart(value, ",")))
                    face.ranges.push_back(*range);
    }
    return face.family.empty() || face.sources.empty() ? std::nullopt : std::optional(face);
}

bool FontFaces::has(std::string_view family) const {
    return std::ranges::any_of(
        faces_, [&](const Face& face) { return equalsIgnoringCase(face.family, family); });
}

/// Slant counts more than weight; of two weights as near, the one in the direction asked for.
int FontFaces::distance(const Face& face, const TextStyle& style) {
    constexpr int kOtherSlant = 10000;
    const int nearest = std::clamp(style.weight, face.lightest, face.boldest);
    const bool isRightWay = (nearest > style.weight) == (style.weight > Drawing::Font::kRegular);
    return (face.isSlanted == (style.slant != FontSlant::upright) ? 0 : kOtherSlant) +
           2 * std::abs(nearest - style.weight) + (isRightWay ? 0 : 1);
}

std::vector<ChosenFont> FontFaces::find(std::string_view family, const TextStyle& style) {
    int best = std::numeric_limits<int>::max();
    for (const Face& face : faces_)
        if (equalsIgnoringCase(face.family, family))
            best = std::min(best, distance(face, style));
    std::vector<ChosenFont> found;
    for (const Face& face : faces_)
        if (equalsIgnoringCase(face.family, family) && distance(face, style) == best)
            if (auto font = open(face, style))
                found.push_back(std::move(*font));
    return found;
}

/// The first source that can be used.
std::optional<ChosenFont> FontFaces::open(const Face& face, const TextStyle& style) {
    TextStyle nearest = style;
    nearest.weight = std::clamp(style.weight, face.lightest, face.boldest);
    std::string_view sources = face.sources;
    while (!sources.empty()) {
        auto font = openSource(takePart(sources, ","), nearest);
        if (!font)
            continue;
        font->ranges = face.ranges;
        return font;
    }
    return std::nullopt;
}

std::optional<ChosenFont> FontFaces::openSource(std::string_view source, const TextStyle& style) {
    if (const auto name = argumentOf(source, "local")) {
        ChosenFont font = installed(*name, style);
        return font.program ? std::optional(std::move(font)) : std::nullopt;
    }
    const auto address = argumentOf(source, "url");
    if (!address)
        return std::nullopt;
    try {
        const auto held = HeldFont::of(read(*address), style);
        ChosenFont font = held->font();
        font.registration = held;
        return font;
    } catch (const Fonts::FontException& error) {
        warnings_.add("left out (@font-face): " + error.getMessage());
    } catch (const image::ImageError& error) {
        warnings_.add(std::string("left out (@font-face): a font ") + error.what());
    }
    return std::nullopt;
}

/// The bytes that an address stands for. Throws `image::ImageError`.
std::string FontFaces::read(std::string_view address) {
    constexpr const char* kTooMuch = "comes after more than 64 MB of fonts; use smaller ones";
    if (equalsIgnoringCase(address.substr(0, 5), "data:")) {
        auto bytes = address.size() / 4 * 3 > bytesLeft_ ? std::nullopt : decodeDataUri(address);
        if (!bytes)
            throw image::ImageError(address.size() / 4 * 3 > bytesLeft_
                                        ? kTooMuch
                                        : "has a damaged data address; embed it anew");
        bytesLeft_ -= std::min(bytesLeft_, bytes->size());
        return std::move(*bytes);
    }
    if (address.find("://") != std::string_view::npos)
        throw image::ImageError("is not fetched; embed it, or put the file beside the drawing");
    const std::string path =
        links_.pathOf(percentDecoded(address.substr(0, address.find_first_of("?#"))));
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (error || size > bytesLeft_)
        throw image::ImageError(error ? "cannot be read; check its name" : kTooMuch);
    std::ifstream file(path, std::ios::binary);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (!file.read(bytes.data(), static_cast<std::streamsize>(size)))
        throw image::ImageError("cannot be read; check the file");
    bytesLeft_ -= bytes.size();
    return bytes;
}

ChosenFont FontFaces::installed(std::string_view name, const TextStyle& style) {
    ChosenFont font{Core::String(name), style.weight, style.slant, nullptr};
    font.program = FontManager::findFamily(font.ofSize(1));
    if (!font.program)
        font.program = FontManager::findInstalledFamily(wishOf(font, style));
    if (font.program)
        giveName(font);
    return font;
}

}  // namespace psrender::svg
