#include "psrender/svg/text/Paragraph.h"

#include "psrender/svg/text/UpperCase.h"
#include "psrender/svg/text/UprightCharacters.h"

#include <fribidi.h>
#include <hb.h>

#include <algorithm>
#include <new>

namespace psrender::svg {

namespace {

constexpr char32_t kFirstRightToLeft = 0x0590;
/// Many times what any language puts on a letter.
constexpr int kMostMarks = 200;

/// What decides whether neighbours are shaped together.
struct Traits {
    const ChosenFont* font = nullptr;
    hb_script_t script = HB_SCRIPT_COMMON;
    std::uint8_t level = 0;
    bool isUpright = false;
    bool isSmallCapital = false;
};

/// The characters with those that embed them in the places where elements ask for it.
std::vector<FriBidiChar> textWithControls(const TextContent& content) {
    std::vector<FriBidiChar> text;
    text.reserve(content.characters.size() + content.controls.size());
    auto control = content.controls.begin();
    for (std::size_t i = 0; i <= content.characters.size(); ++i) {
        for (; control != content.controls.end() && control->before <= i; ++control)
            text.push_back(control->code);
        if (i < content.characters.size())
            text.push_back(content.characters[i].code);
    }
    return text;
}

/// Leaves the levels of the characters alone.
std::vector<std::uint8_t> withoutControls(const std::vector<FriBidiLevel>& found,
                                          const TextContent& content) {
    std::vector<std::uint8_t> levels;
    levels.reserve(content.characters.size());
    auto control = content.controls.begin();
    auto level = found.begin();
    for (std::size_t i = 0; i < content.characters.size(); ++i) {
        for (; control != content.controls.end() && control->before <= i; ++control)
            ++level;
        levels.push_back(static_cast<std::uint8_t>(*level++));
    }
    return levels;
}

/// Embedding levels (Unicode Annex 9), all 0 for text from left to right.
std::vector<std::uint8_t> embeddingLevels(const TextContent& content) {
    const std::vector<FriBidiChar> text = textWithControls(content);
    const bool isRightToLeft = content.isRightToLeft;
    if (!isRightToLeft && content.controls.empty() &&
        std::ranges::all_of(text, [](FriBidiChar code) { return code < kFirstRightToLeft; }))
        return std::vector<std::uint8_t>(text.size());
    const auto count = static_cast<FriBidiStrIndex>(text.size());
    std::vector<FriBidiCharType> types(text.size());
    std::vector<FriBidiBracketType> brackets(text.size());
    fribidi_get_bidi_types(text.data(), count, types.data());
    fribidi_get_bracket_types(text.data(), count, types.data(), brackets.data());
    FriBidiParType base = isRightToLeft ? FRIBIDI_PAR_RTL : FRIBIDI_PAR_LTR;
    std::vector<FriBidiLevel> found(text.size());
    if (fribidi_get_par_embedding_levels_ex(types.data(), brackets.data(), count, &base,
                                            found.data()) == 0)
        throw std::bad_alloc();
    return withoutControls(found, content);
}

bool joinsItsNeighbour(char32_t code) {
    switch (hb_unicode_general_category(hb_unicode_funcs_get_default(), code)) {
        case HB_UNICODE_GENERAL_CATEGORY_SPACE_SEPARATOR:
        case HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK:
        case HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK:
        case HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK:
        case HB_UNICODE_GENERAL_CATEGORY_FORMAT:
            return true;
        default:
            return false;
    }
}

hb_script_t scriptOf(char32_t code) {
    const hb_script_t script = hb_unicode_script(hb_unicode_funcs_get_default(), code);
    return script == HB_SCRIPT_INHERITED ? HB_SCRIPT_COMMON : script;
}

class Splitter {
public:
    Splitter(const TextContent& content, FontChooser& fonts)
        : content_(content), fonts_(fonts), levels_(embeddingLevels(content)) {}

    std::vector<TextChunk> split() {
        for (std::size_t i = 0; i < content_.characters.size(); ++i)
            add(i);
        for (TextChunk& chunk : chunks_)
            reorder(chunk.segments);
        return std::move(chunks_);
    }

private:
    void add(std::size_t index) {
        const TextCharacter& character = content_.characters[index];
        const Traits traits = traitsOf(index);
        const bool beginsChunk = index == 0 || character.x || character.y || changesPath(index);
        if (beginsChunk)
            chunks_.push_back({index, index, {}});
        TextChunk& chunk = chunks_.back();
        const bool isOverfull = hasTooManyMarks(character.code);
        const bool goesOn = !beginsChunk && character.span == content_.characters[index - 1].span &&
                            !isOverfull && traits.font == last_.font &&
                            traits.level == last_.level && traits.isUpright == last_.isUpright &&
                            traits.isSmallCapital == last_.isSmallCapital &&
                            (traits.script == last_.script || traits.script == HB_SCRIPT_COMMON ||
                             last_.script == HB_SCRIPT_COMMON);
        if (!goesOn)
            chunk.segments.push_back(
                {index, index, traits.font, traits.level, traits.isUpright, traits.isSmallCapital});
        chunk.segments.back().end = chunk.end = index + 1;
        const hb_script_t script =
            goesOn && traits.script == HB_SCRIPT_COMMON ? last_.script : traits.script;
        last_ = traits;
        last_.script = script;
    }

    /// The shaper compares each mark with all before it on the same letter.
    bool hasTooManyMarks(char32_t code) {
        const bool isMark = hb_unicode_combining_class(hb_unicode_funcs_get_default(), code) != 0;
        marks_ = isMark && marks_ < kMostMarks ? marks_ + 1 : 0;
        return isMark && marks_ == 0;
    }

    [[nodiscard]] bool changesPath(std::size_t index) const {
        const auto path = [&](std::size_t i) {
            return content_.spans[content_.characters[i].span].path;
        };
        return path(index) != path(index - 1);
    }

    [[nodiscard]] Traits traitsOf(std::size_t index) {
        const TextCharacter& character = content_.characters[index];
        const TextSpan& span = content_.spans[character.span];
        const bool joins = index > 0 && character.span == content_.characters[index - 1].span &&
                           joinsItsNeighbour(character.code) &&
                           last_.font->program->covers(character.code);
        Traits traits{joins ? last_.font : fonts_.choose(span.style.text, character.code),
                      scriptOf(character.code), levels_[index]};
        const bool isMark = joins && character.code != U' ';
        traits.isUpright = isMark ? last_.isUpright : standsUpright(character.code, span);
        traits.isSmallCapital =
            isMark ? last_.isSmallCapital : isSmallCapital(character.code, span.style.text);
        return traits;
    }

    [[nodiscard]] bool standsUpright(char32_t code, const TextSpan& span) const {
        if (!content_.isVertical || span.style.text.orientation == Orientation::sideways)
            return false;
        return span.style.text.orientation == Orientation::upright || svg::standsUpright(code);
    }

    static bool isSmallCapital(char32_t code, const TextStyle& style) {
        return style.capitals != Capitals::normal &&
               (style.capitals == Capitals::all || upperCase(code) != code);
    }

    /// From the highest level down to the lowest odd one, every stretch of at least that level is
    /// turned round.
    static void reorder(std::vector<TextSegment>& segments) {
        const auto highest = std::ranges::max_element(segments, {}, &TextSegment::level);
        for (int level = highest->level; level > 0; --level) {
            const auto isWithin = [&](const TextSegment& segment) {
                return segment.level >= level;
            };
            for (auto begin = segments.begin(); begin != segments.end();) {
                begin = std::find_if(begin, segments.end(), isWithin);
                const auto end = std::find_if_not(begin, segments.end(), isWithin);
                std::reverse(begin, end);
                begin = end;
            }
        }
    }

    const TextContent& content_;
    FontChooser& fonts_;
    std::vector<std::uint8_t> levels_;
    std::vector<TextChunk> chunks_;
    Traits last_;
    int marks_ = 0;  ///< in a row
};

}  // namespace

std::vector<TextChunk> splitIntoChunks(const TextContent& content, FontChooser& fonts) {
    if (content.characters.empty())
        return {};
    return Splitter(content, fonts).split();
}

}  // namespace psrender::svg
