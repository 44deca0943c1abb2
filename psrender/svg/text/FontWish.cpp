#include "psrender/svg/text/FontWish.h"

#include "psrender/svg/text/FontFeatures.h"

namespace psrender::svg {

using Fonts::FontManager;

FontManager::Wish wishOf(const ChosenFont& font, const TextStyle& style) {
    FontManager::Wish wish{font.ofSize(1), style.stretch, {}};
    for (const FontSetting& setting : parseFontSettings(style.variations))
        wish.axes.push_back({setting.tag, static_cast<float>(setting.value)});
    return wish;
}

void giveName(ChosenFont& font) {
    font.family = font.program->getMetrics().postScriptName;
    if (FontManager::findFont(font.ofSize(1)) != font.program)
        FontManager::registerFont(font.family, font.weight, font.slant, font.program);
}

}  // namespace psrender::svg
