#include "Fonts/internal/FontLoader.h"

#include "Fonts/CffFont.h"
#include "Fonts/FontException.h"
#include "Fonts/TTFFont.h"
#include "Fonts/Type1Font.h"
#include "Fonts/internal/OpenTypeFace.h"
#include "Fonts/internal/Sfnt.h"
#include "Fonts/internal/SfntDirectory.h"
#include "Fonts/internal/Type1Face.h"
#include "Fonts/internal/Type1Segments.h"

#include <memory>
#include <utility>

namespace Fonts {

namespace {

Core::SmartPtr<FontProgram> loadOpenType(FontBytes bytes, std::uint32_t faceIndex) {
    auto face = std::make_unique<const OpenTypeFace>(std::move(bytes), faceIndex);
    const SfntDirectory& directory = face->directory;
    if (directory.has(Sfnt::kGlyf) && directory.has(Sfnt::kLoca))
        return Core::makeObject<TTFFont>(std::move(face));
    if (directory.has(Sfnt::kCff) || directory.has(Sfnt::kCff2))
        return Core::makeObject<CffFont>(std::move(face));
    throw FontException(face->bytes.name(), "is no usable font: it has no outlines");
}

Core::SmartPtr<FontProgram> loadType1(FontBytes bytes) {
    Core::ByteArray segments = type1Segments(bytes.span(), bytes.name());
    auto face = std::make_unique<const Type1Face>(std::move(bytes));
    return Core::makeObject<Type1Font>(std::move(face), std::move(segments));
}

}  // namespace

Core::SmartPtr<FontProgram> loadFont(FontBytes bytes, std::uint32_t faceIndex) {
    if (SfntDirectory::isSfnt(bytes.span()))
        return loadOpenType(std::move(bytes), faceIndex);
    if (isType1(bytes.span()))
        return loadType1(std::move(bytes));
    throw FontException(bytes.name(), "is no TrueType, OpenType or Type 1 font");
}

}  // namespace Fonts
