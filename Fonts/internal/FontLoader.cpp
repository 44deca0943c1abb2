#include "Fonts/internal/FontLoader.h"

#include "Fonts/CffFont.h"
#include "Fonts/FontException.h"
#include "Fonts/TTFFont.h"
#include "Fonts/Type1Font.h"
#include "Fonts/VariedFont.h"
#include "Fonts/internal/OpenTypeFace.h"
#include "Fonts/internal/Sfnt.h"
#include "Fonts/internal/SfntDirectory.h"
#include "Fonts/internal/Type1Face.h"
#include "Fonts/internal/Type1Segments.h"
#include "Fonts/internal/WebFont.h"

#include <hb-ot.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace Fonts {

namespace {

bool hasOutlines(const SfntDirectory& directory) {
    return (directory.has(Sfnt::kGlyf) && directory.has(Sfnt::kLoca)) ||
           directory.has(Sfnt::kCff) || directory.has(Sfnt::kCff2);
}

/// The places of `axes` on those that the face has, without its usual ones.
std::vector<FontAxis> unusualPlaces(const FontBytes& bytes, std::uint32_t faceIndex,
                                    const std::vector<FontAxis>& axes) {
    const HarfBuzzPtr<hb_face_t> face(hb_face_create(bytes.blob(), faceIndex));
    std::vector<FontAxis> places;
    for (const FontAxis& axis : axes) {
        hb_ot_var_axis_info_t info{};
        if (hb_ot_var_find_axis_info(face.get(), axis.tag, &info) == 0)
            continue;
        const float value = std::clamp(axis.value, info.min_value, info.max_value);
        if (value != info.default_value)
            places.push_back({axis.tag, value});
    }
    return places;
}

Core::SmartPtr<FontProgram> loadOpenType(FontBytes bytes, std::uint32_t faceIndex,
                                         const std::vector<FontAxis>& axes) {
    std::vector<FontAxis> places = unusualPlaces(bytes, faceIndex, axes);
    const bool isVaried = !places.empty();
    auto face =
        std::make_unique<const OpenTypeFace>(std::move(bytes), faceIndex, std::move(places));
    const SfntDirectory& directory = face->directory;
    if (isVaried && hasOutlines(directory))
        return Core::makeObject<VariedFont>(std::move(face));
    if (directory.has(Sfnt::kGlyf) && directory.has(Sfnt::kLoca))
        return Core::makeObject<TTFFont>(std::move(face));
    if (directory.has(Sfnt::kCff) || directory.has(Sfnt::kCff2))
        return Core::makeObject<CffFont>(std::move(face));
    if (directory.has(Sfnt::kCbdt) || directory.has(Sfnt::kSbix))
        return Core::makeObject<PictureFont>(std::move(face));
    throw FontException(face->bytes.name(), "is no usable font: it has no outlines");
}

Core::SmartPtr<FontProgram> loadType1(FontBytes bytes) {
    Core::ByteArray segments = type1Segments(bytes.span(), bytes.name());
    auto face = std::make_unique<const Type1Face>(std::move(bytes));
    return Core::makeObject<Type1Font>(std::move(face), std::move(segments));
}

}  // namespace

Core::SmartPtr<FontProgram> loadFont(FontBytes bytes, std::uint32_t faceIndex,
                                     const std::vector<FontAxis>& axes) {
    if (isWebFont(bytes.span()))
        bytes = unpackWebFont(bytes);
    if (SfntDirectory::isSfnt(bytes.span()))
        return loadOpenType(std::move(bytes), faceIndex, axes);
    if (isType1(bytes.span()))
        return loadType1(std::move(bytes));
    throw FontException(bytes.name(), "is no TrueType, OpenType or Type 1 font");
}

}  // namespace Fonts
