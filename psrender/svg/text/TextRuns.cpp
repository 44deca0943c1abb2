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

class Gatherer {
public:
    explicit Gatherer(const TextContent& content) : content_(content) {}

    void add(const LaidGlyph& glyph) {
        if (!goesOn(glyph)) {
            finish();
            begin(glyph);
        }
        const scene::Point at{(glyph.origin.x - origin_.x) / glyph.stretch,
                              glyph.origin.y - origin_.y};
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
    [[nodiscard]] double sizeOf(const LaidGlyph& glyph) const {
        return content_.spans[glyph.span].style.fontSize;
    }

    [[nodiscard]] bool goesOn(const LaidGlyph& glyph) {
        if (!run_ || run_->glyphs.size() == kMostGlyphs || glyph.font != last_.font ||
            glyph.span != last_.span || glyph.rotation != 0 || last_.rotation != 0 ||
            glyph.isPlain != last_.isPlain || glyph.stretch != last_.stretch)
            return false;
        return !glyph.isPlain || followsByItself(glyph);
    }

    /// Whether the pen of a back end would stand where `glyph` is.
    [[nodiscard]] bool followsByItself(const LaidGlyph& glyph) {
        const char32_t code = content_.characters[glyph.character].code;
        const bool isMark = code < Core::Unicode::kFirstSupplementary &&
                            Fonts::UnicodeRanges::isMark(static_cast<char16_t>(code));
        const Fonts::FontProgram& program = *glyph.font->program;
        const int kern = program.getKerning(last_.id, glyph.id, isMark).value_or(0);
        const double size = sizeOf(glyph);
        const double step = (double{program.getAdvance(last_.id)} - kern) * size / kEm +
                            content_.spans[glyph.span].style.text.letterSpacing;
        const double expected = expected_ + step;
        const double actual = (glyph.origin.x - origin_.x) / glyph.stretch;
        if (std::abs(actual - expected) > kDrift * size ||
            std::abs(glyph.origin.y - last_.origin.y) > kDrift * size / 10)
            return false;
        expected_ = expected;
        return true;
    }

    void begin(const LaidGlyph& glyph) {
        run_ = std::make_shared<TextRun>();
        run_->font = glyph.font->ofSize(sizeOf(glyph));
        run_->program = glyph.font->program;
        run_->size = sizeOf(glyph);
        run_->spacing = content_.spans[glyph.span].style.text.letterSpacing;
        run_->isPlain = glyph.isPlain;
        origin_ = glyph.origin;
        expected_ = 0;
        transform_ = Affine::translation(origin_.x, origin_.y) * Affine::rotation(glyph.rotation) *
                     Affine::scaling(glyph.stretch, 1);
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
    scene::Point origin_;
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
