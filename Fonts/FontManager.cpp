#include "Fonts/FontManager.h"

#include "Fonts/FontException.h"
#include "Fonts/internal/FontLoader.h"
#include "Fonts/internal/FontRegistry.h"

namespace Fonts {

namespace {

FontRegistry& registry() {
    static FontRegistry theRegistry;
    return theRegistry;
}

}  // namespace

FontManager::Program FontManager::getFont(const Core::SmartPtr<Drawing::Font>& font) {
    Program program = findFont(font);
    if (!program)
        throw FontNotFoundException(font->getFontFamily().toUtf8());
    return program;
}

FontManager::Program FontManager::findFont(const Core::SmartPtr<Drawing::Font>& font) {
    return registry().find(*font);
}

FontManager::Program FontManager::findFamily(const Core::SmartPtr<Drawing::Font>& font) {
    return registry().findFamily(*font);
}

FontManager::Program FontManager::findFontFor(char32_t character,
                                              const Core::SmartPtr<Drawing::Font>& font) {
    return registry().findFor(character, *font);
}

FontManager::Program FontManager::findInstalledFont(const Core::SmartPtr<Drawing::Font>& font) {
    return registry().findInstalled(*font);
}

FontManager::Program FontManager::findInstalledFamily(const Wish& wish) {
    return registry().findInstalledFamily(wish);
}

FontManager::Program FontManager::findInstalledFontFor(char32_t character, const Wish& wish,
                                                       bool isPicture) {
    return registry().findInstalledFor(character, wish, isPicture);
}

void FontManager::registerFont(const Core::String& family, int weight, Drawing::FontSlant slant,
                               const Program& program) {
    if (!program)
        Core::throwNullPointer();
    registry().add({family, weight, slant, program});
}

void FontManager::registerFontFile(const Core::String& family, int weight, Drawing::FontSlant slant,
                                   const Core::String& fileName, std::uint32_t faceIndex) {
    registerFont(family, weight, slant, openFontFile(fileName, faceIndex));
}

void FontManager::unregisterFont(const Program& program) {
    registry().remove(program);
}

FontManager::Program FontManager::openFontFile(const Core::String& fileName,
                                               std::uint32_t faceIndex) {
    return registry().open(fileName.toUtf8(), faceIndex);
}

FontManager::Program FontManager::openFontData(const Core::ByteArray& data,
                                               const Core::String& name, std::uint32_t faceIndex) {
    return loadFont(FontBytes(data, name.toUtf8()), faceIndex);
}

FontManager::Program FontManager::openFontData(const Core::ByteArray& data,
                                               const Core::String& name, const Wish& wish) {
    return loadFont(FontBytes(data, name.toUtf8()), 0, axesOf(wish));
}

}  // namespace Fonts
