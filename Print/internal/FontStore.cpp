#include "Print/internal/FontStore.h"

#include "Core/Log.h"
#include "Fonts/FontManager.h"

#include <algorithm>

namespace Drawing::Print {

int KerningCache::get(const Fonts::FontProgram& program, GlyphId first, GlyphId second,
                      bool secondIsMark) {
    if (secondIsMark)
        return program.getKerning(first, second, true).value_or(0);
    constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;
    const std::uint64_t pair = std::uint64_t{first} << 32 | second;
    Slot& slot = slots_[static_cast<std::size_t>(pair * kSpread >> 52) % kSlots];
    if (slot.pair != pair)
        slot = {pair, program.getKerning(first, second, false).value_or(0)};
    return slot.move;
}

/// One description is asked for many times in a row.
FontStore::Entry& FontStore::entryOf(const Core::SmartPtr<Font>& font) {
    if (latest_ && latestFont_ == font)
        return *latest_;
    Entry*& known = byDescription_[font->getHashKey()];
    if (!known)
        known = &entryOf(Fonts::FontManager::getFont(font));
    latestFont_ = font;
    latest_ = known;
    return *known;
}

FontStore::Entry& FontStore::entryOf(const Core::SmartPtr<Fonts::FontProgram>& program) {
    if (const auto known = byProgram_.find(program.get()); known != byProgram_.end())
        return *known->second;
    auto entry = std::make_unique<Entry>();
    entry->program = program;
    entry->font =
        PrintFont::make(program, static_cast<std::uint32_t>(entries_.size() + 1), settings_);
    if (!entry->font)
        Core::Log::warning(u"The font " + program->getMetrics().postScriptName +
                           u" may not be embedded in documents; its text is drawn as outlines.");
    entries_.push_back(std::move(entry));
    return *(byProgram_[program.get()] = entries_.back().get());
}

void FontStore::writeDefinitions(Core::IO::Stream& output) const {
    for (const auto& entry : entries_)
        if (entry->font && entry->font->partCount() > 0) {
            output.write("%%BeginResource: font " + entry->font->partName(0) + "\n");
            entry->font->writeDefinitions(output);
            output.write("%%EndResource\n");
        }
}

std::vector<std::string> FontStore::suppliedFonts() const {
    std::vector<std::string> names;
    for (const auto& entry : entries_)
        if (entry->font)
            for (std::size_t part = 0; part < entry->font->partCount(); ++part)
                names.push_back("font " + entry->font->partName(part));
    return names;
}

std::vector<std::string> FontStore::neededFonts() const {
    std::vector<std::string> names;
    for (const auto& entry : entries_)
        if (entry->font && entry->font->partCount() > 0 && !entry->font->neededFont().empty())
            names.push_back("font " + entry->font->neededFont());
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

}  // namespace Drawing::Print
