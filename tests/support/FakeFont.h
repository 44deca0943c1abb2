#pragma once

#include "Fonts/FontProgram.h"

#include <string>

/// A font of a test's choice: every character's glyph has the character's number and the name "g"
/// and that number; AV is kerned by 70, and A with an acute as letters would be, not as a mark by
/// 30; U+FFFF has no glyph.
class FakeFont : public Fonts::FontProgram {
public:
    explicit FakeFont(Fonts::FontKind kind, const char* name = "Fake-PS") : kind_(kind) {
        metrics_.postScriptName = name;
    }

    [[nodiscard]] const Fonts::FontMetrics& getMetrics() const override { return metrics_; }
    [[nodiscard]] Fonts::FontKind getKind() const override { return kind_; }
    [[nodiscard]] bool isEmbeddable() const override { return !program.empty(); }
    [[nodiscard]] Core::ByteArray getProgramData() const override { return program; }
    [[nodiscard]] std::vector<GlyphId> mapGlyphs(const Fonts::FontScript& run) const override {
        std::vector<GlyphId> glyphs;
        for (const char16_t unit : run.text.view())
            glyphs.push_back(unit == u'\uFFFF' ? kMissingGlyph : GlyphId{unit});
        return glyphs;
    }
    [[nodiscard]] Core::String getGlyphName(GlyphId glyph) const override {
        return "g" + std::to_string(glyph);
    }
    [[nodiscard]] std::optional<int> getKerning(GlyphId first, GlyphId second,
                                                bool secondIsMark) const override {
        if (first == 'A' && second == 0x0301 && !secondIsMark)
            return 30;
        return first == 'A' && second == 'V' ? std::optional(70) : std::nullopt;
    }
    [[nodiscard]] float getAdvance(GlyphId /*glyph*/) const override { return 500; }

    Core::ByteArray program;

private:
    Fonts::FontKind kind_;
    Fonts::FontMetrics metrics_;
};
