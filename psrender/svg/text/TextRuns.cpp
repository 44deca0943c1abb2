#include "psrender/svg/text/TextRuns.h"

#include "Core/Unicode.h"
#include "Fonts/UnicodeRanges.h"

#include <cmath>
#include <string>
#include <utility>

namespace psrender::svg {

using scene::Affine;
using scene::TextRun;

namespace {

constexpr double kEm = 1000;
/// In ems: less than can be seen at any size that text is read at.
constexpr double kDrift = 0.01;
/// Drawn by outlines, more of them would be one path that interpreters have no room for.
constexpr std::size_t kMostGlyphs = 1000;

bool isTurnedAlike(const Affine& a, const Affine& b) {
    constexpr double kNoise = 1e-9;
    return std::abs(a.a - b.a) < kNoise && std::abs(a.b - b.b) < kNoise &&
           std::abs(a.c - b.c) < kNoise && std::abs(a.d - b.d) < kNoise;
}

class Gatherer {
public:
    explicit Gatherer(const TextContent& content) : content_(content) {}

    void add(const LaidGlyph& glyph) {
        if (!goesOn(glyph)) {
            finish();
            begin(glyph);
        }
        const scene::Point at = placeOf(glyph);
        const std::size_t before = text_.size();
        for (std::size_t i = 0; i < glyph.countCharacters; ++i)
            Core::Unicode::appendUtf16(text_, content_.characters[glyph.character + i].code);
        run_->glyphs.push_back({glyph.id, run_->isPlain ? scene::Point{at.x, 0} : at, 0,
                                static_cast<std::uint32_t>(text_.size() - before)});
        last_ = glyph;
    }

    std::vector<LaidRun> take() {
        finish();
        return std::move(runs_);
    }

private:
    [[nodiscard]] bool goesOn(const LaidGlyph& glyph) {
        if (!run_ || run_->glyphs.size() == kMostGlyphs || glyph.font != last_.font ||
            glyph.size != last_.size || glyph.span != last_.span ||
            glyph.isPlain != last_.isPlain || !isTurnedAlike(glyph.map, last_.map))
            return false;
        return !glyph.isPlain || followsByItself(glyph);
    }

    /// In the space of the run.
    [[nodiscard]] scene::Point placeOf(const LaidGlyph& glyph) const {
        return toRun_.apply({glyph.map.e, glyph.map.f});
    }

    /// Whether the pen of a back end would stand where `glyph` is.
    [[nodiscard]] bool followsByItself(const LaidGlyph& glyph) {
        const char32_t code = content_.characters[glyph.character].code;
        const bool isMark = code < Core::Unicode::kFirstSupplementary &&
                            Fonts::UnicodeRanges::isMark(static_cast<char16_t>(code));
        const Fonts::FontProgram& program = *glyph.font->program;
        const int kern = program.getKerning(last_.id, glyph.id, isMark).value_or(0);
        const double size = glyph.size;
        const double step =
            (double{program.getAdvance(last_.id)} - kern) * size / kEm + glyph.spacing;
        const double expected = expected_ + step;
        const scene::Point at = placeOf(glyph);
        if (std::abs(at.x - expected) > kDrift * size ||
            std::abs(at.y - placeOf(last_).y) > kDrift * size / 10)
            return false;
        expected_ = expected;
        return true;
    }

    void begin(const LaidGlyph& glyph) {
        run_ = std::make_shared<TextRun>();
        run_->font = glyph.font->ofSize(glyph.size);
        run_->program = glyph.font->program;
        run_->registration = glyph.font->registration;
        run_->standsFor = glyph.font->standsFor;
        run_->size = glyph.size;
        run_->spacing = glyph.spacing;
        run_->isPlain = glyph.isPlain;
        transform_ = glyph.map;
        toRun_ = transform_.isInvertible() ? transform_.inverse() : Affine();
        expected_ = 0;
    }

    void finish() {
        if (!run_)
            return;
        run_->text = Core::String(std::exchange(text_, {}));
        runs_.push_back({std::move(run_), transform_, last_.span});
        run_ = nullptr;
    }

    const TextContent& content_;
    std::vector<LaidRun> runs_;
    std::shared_ptr<TextRun> run_;  ///< that is being gathered
    std::u16string text_;
    Affine transform_;
    Affine toRun_;
    double expected_ = 0;  ///< where the last glyph would stand if only the font had its way
    LaidGlyph last_;
};

}  // namespace

std::vector<LaidRun> gatherRuns(const TextContent& content, const std::vector<LaidGlyph>& glyphs) {
    Gatherer gatherer(content);
    for (const LaidGlyph& glyph : glyphs)
        gatherer.add(glyph);
    return gatherer.take();
}

}  // namespace psrender::svg
