#include "Drawing/Font.h"

#include "Core/StringFormatStream.h"

#include <utility>

namespace Drawing {

namespace {

bool isPlain(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
           (unit >= u'0' && unit <= u'9') || unit == u' ' || unit == u'-';
}

/// Other characters become "_" and their four digits, so that different families stay different.
Core::String plainName(const Core::String& family) {
    std::u16string name;
    for (const char16_t unit : family.view()) {
        if (isPlain(unit)) {
            name.push_back(unit);
            continue;
        }
        const Core::String digits = Core::StringFormatStream(u"_{0:X04}") << int{unit};
        name += digits.view();
    }
    return {std::move(name)};
}

}  // namespace

Font::Font(Core::String family, float size, int weight, FontSlant slant)
    : family_(std::move(family)), size_(size), weight_(weight), slant_(slant) {
    hashKey_ = Core::StringFormatStream(u"{0}-{1}-{2}")
               << plainName(family_) << weight_ << static_cast<int>(slant_);
}

Font::~Font() = default;

}  // namespace Drawing
