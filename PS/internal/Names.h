#pragma once

#include "Core/StringFormatStream.h"

#include <cstdint>

/// The names of what a document defines in its prolog and refers to on its pages, one function a
/// name, so that definition and use cannot drift apart.
namespace Drawing::PS::Names {

inline Core::String fragment(std::uint32_t number) {
    return Core::StringFormatStream(u"docf_{0}") << number;
}

inline Core::String pattern(std::uint32_t number) {
    return Core::StringFormatStream(u"pattern_{0}") << number;
}

inline Core::String shader(std::uint32_t number) {
    return Core::StringFormatStream(u"shader_{0}") << number;
}

inline Core::String font(std::uint32_t number) {
    return Core::StringFormatStream(u"F{0}") << number;
}

/// Of one gradient; every gradient starts again at 0 and redefines them.
inline Core::String function(std::size_t number) {
    return Core::StringFormatStream(u"Function{0}") << number;
}

inline Core::String image(const Core::String& key) {
    return Core::StringFormatStream(u"Img_{0}") << key;
}

inline Core::String imageData(const Core::String& key) {
    return Core::StringFormatStream(u"ImageData_{0}") << key;
}

}  // namespace Drawing::PS::Names
