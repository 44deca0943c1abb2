#pragma once

#include "Core/SmartPtr.h"
#include "Core/Stream.h"
#include "Drawing/Font.h"
#include "Fonts/FontProgram.h"
#include "Print/fonts/internal/PrintFont.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Drawing::Print {

/// Moves between glyphs that a font kerns, remembered: texts ask for the same pairs all the time.
class KerningCache {
public:
    using GlyphId = Fonts::FontProgram::GlyphId;

    /// 1/1000 em, positive = closer, 0 for a pair that is not kerned.
    int get(const Fonts::FontProgram& program, GlyphId first, GlyphId second, bool secondIsMark);

private:
    static constexpr std::size_t kSlots = 4096;
    struct Slot {
        std::uint64_t pair = ~std::uint64_t{0};
        int move = 0;
    };
    std::vector<Slot> slots_ = std::vector<Slot>(kSlots);
};

/// The fonts of a document by their programs.
class FontStore {
public:
    struct Entry {
        Core::SmartPtr<Fonts::FontProgram> program;
        std::unique_ptr<PrintFont> font;  ///< null: drawn as outlines
        KerningCache kerning;
    };

    explicit FontStore(const FontSettings& settings) : settings_(settings) {}

    /// Raises `FontNotFoundException` for a font that nobody knows.
    Entry& entryOf(const Core::SmartPtr<Font>& font);
    /// Tells by `Log::warning`, once, of a program that cannot be embedded.
    Entry& entryOf(const Core::SmartPtr<Fonts::FontProgram>& program);

    void writeDefinitions(Core::IO::Stream& output) const;
    /// DSC resources for the header: the fonts that the file brings, and those that it needs.
    [[nodiscard]] std::vector<std::string> suppliedFonts() const;
    [[nodiscard]] std::vector<std::string> neededFonts() const;

private:
    FontSettings settings_;
    std::vector<std::unique_ptr<Entry>> entries_;  ///< in the order of their first use
    std::map<const Fonts::FontProgram*, Entry*> byProgram_;
    std::map<Core::String, Entry*> byDescription_;
    Core::SmartPtr<Font> latestFont_;
    Entry* latest_ = nullptr;
};

}  // namespace Drawing::Print
