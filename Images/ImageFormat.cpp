#include "Images/ImageFormat.h"

#include <array>

namespace Images {

namespace {

using namespace std::string_view_literals;

struct Signature {
    std::string_view bytes;
    ImageFormat format;
    const char* name;
    std::size_t offset = 0;
};

constexpr std::array kSignatures{
    Signature{"\x89PNG\r\n\x1A\n"sv, ImageFormat::png, "a PNG"},
    Signature{"\xFF\xD8\xFF"sv, ImageFormat::jpeg, "a JPEG"},
    Signature{"GIF8"sv, ImageFormat::gif, "a GIF"},
    Signature{"WEBP"sv, ImageFormat::webp, "a WebP", 8},
    Signature{"II*\0"sv, ImageFormat::other, "a TIFF"},
    Signature{"MM\0*"sv, ImageFormat::other, "a TIFF"},
    Signature{"\0\0\0\x0CjP  "sv, ImageFormat::other, "a JPEG 2000"},
    Signature{"ftypavif"sv, ImageFormat::other, "an AVIF", 4},
    Signature{"ftyphei"sv, ImageFormat::other, "an HEIF", 4},
    Signature{"\xFF\x0A"sv, ImageFormat::other, "a JPEG XL"},
};

const Signature* find(std::string_view beginning) {
    for (const Signature& signature : kSignatures)
        if (beginning.size() >= signature.offset &&
            beginning.substr(signature.offset).starts_with(signature.bytes))
            return &signature;
    return nullptr;
}

}  // namespace

ImageFormat formatOf(std::string_view beginning) {
    const Signature* signature = find(beginning);
    return signature != nullptr ? signature->format : ImageFormat::none;
}

std::string unusableFormat(std::string_view beginning) {
    const Signature* signature = find(beginning);
    if (signature == nullptr)
        return "is no PNG, JPEG, GIF or WebP image; convert it to one of them";
    return std::string("is ") + signature->name + " image; convert it to PNG or JPEG";
}

}  // namespace Images
