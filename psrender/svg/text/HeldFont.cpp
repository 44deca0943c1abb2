#include "psrender/svg/text/HeldFont.h"

#include "Fonts/FontManager.h"
#include "psrender/svg/text/FontWish.h"

#include <xxhash.h>

#include <map>
#include <mutex>
#include <string>
#include <utility>

namespace psrender::svg {

using Fonts::FontManager;

namespace {

std::string nameOf(std::string_view bytes, const TextStyle& style) {
    return "embedded-" + std::to_string(XXH3_64bits(bytes.data(), bytes.size())) + "-" +
           std::to_string(style.stretch) + std::string(style.variations);
}

}  // namespace

std::shared_ptr<const HeldFont> HeldFont::of(std::string_view bytes, const TextStyle& style) {
    static std::mutex lock;
    static std::map<std::string, std::weak_ptr<const HeldFont>> known;
    ChosenFont font{Core::String(nameOf(bytes, style)), style.weight, style.slant, nullptr};
    const std::string key = font.ofSize(1)->getHashKey().toUtf8();
    const std::scoped_lock guard(lock);
    if (auto held = known[key].lock())
        return held;
    std::erase_if(known, [](const auto& entry) { return entry.second.expired(); });
    font.program =
        FontManager::openFontData(Core::ByteArray(bytes), "an embedded font", wishOf(font, style));
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): its constructor is its own affair.
    std::shared_ptr<const HeldFont> held(new HeldFont(std::move(font)));
    known[key] = held;
    return held;
}

HeldFont::HeldFont(ChosenFont font) : font_(std::move(font)) {
    FontManager::registerFont(font_.family, font_.weight, font_.slant, font_.program);
}

HeldFont::~HeldFont() {
    FontManager::unregisterFont(font_.program);
}

}  // namespace psrender::svg
