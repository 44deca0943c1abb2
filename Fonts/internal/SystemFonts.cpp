#include "Fonts/internal/SystemFonts.h"

#include "Fonts/internal/Type1Face.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

namespace Fonts {

namespace {

/// A list names every installed font, so only so many are kept.
constexpr std::size_t kMostSorted = 200;
constexpr int kUsualStretch = 100;

bool flagOf(FcPattern* pattern, const char* object) {
    FcBool flag = FcFalse;
    return FcPatternGetBool(pattern, object, 0, &flag) == FcResultMatch && flag != FcFalse;
}

int numberOf(FcPattern* pattern, const char* object) {
    int number = 0;
    FcPatternGetInteger(pattern, object, 0, &number);
    return number;
}

const char* textOf(FcPattern* pattern, const char* object, int index = 0) {
    FcChar8* text = nullptr;
    const bool found = FcPatternGetString(pattern, object, index, &text) == FcResultMatch;
    return found ? reinterpret_cast<const char*>(text) : nullptr;
}

/// Instances of a variable font have a number in the upper half of their index.
bool isUsable(FcPattern* pattern) {
    const char* format = textOf(pattern, FC_FONTFORMAT);
    const std::string_view kind = format ? format : "";
    return (kind == "TrueType" || kind == "Type 1") && textOf(pattern, FC_FILE) != nullptr &&
           flagOf(pattern, FC_OUTLINE) && !flagOf(pattern, FC_VARIABLE) &&
           !flagOf(pattern, FC_COLOR) && numberOf(pattern, FC_INDEX) >> 16 == 0;
}

/// A font of any kind that there are pictures or outlines in.
bool isDrawable(FcPattern* pattern) {
    const char* format = textOf(pattern, FC_FONTFORMAT);
    const std::string_view kind = format ? format : "";
    return (kind == "TrueType" || kind == "CFF" || kind == "Type 1") &&
           textOf(pattern, FC_FILE) != nullptr &&
           (flagOf(pattern, FC_OUTLINE) || flagOf(pattern, FC_COLOR)) &&
           numberOf(pattern, FC_INDEX) >> 16 == 0;
}

int slantOf(Drawing::FontSlant slant) {
    if (slant == Drawing::FontSlant::upright)
        return FC_SLANT_ROMAN;
    return slant == Drawing::FontSlant::italic ? FC_SLANT_ITALIC : FC_SLANT_OBLIQUE;
}

}  // namespace

std::string SystemFonts::Candidate::file() const {
    return textOf(pattern_, FC_FILE);
}

std::uint32_t SystemFonts::Candidate::faceIndex() const {
    return static_cast<std::uint32_t>(numberOf(pattern_, FC_INDEX));
}

bool SystemFonts::Candidate::isOfFamily(const Core::String& family) const {
    for (int i = 0; const char* name = textOf(pattern_, FC_FAMILY, i); ++i)
        if (family.equalsNoCase(name))
            return true;
    return false;
}

bool SystemFonts::Candidate::covers(char32_t character) const {
    FcCharSet* characters = nullptr;
    return FcPatternGetCharSet(pattern_, FC_CHARSET, 0, &characters) == FcResultMatch &&
           FcCharSetHasChar(characters, character) != FcFalse;
}

bool SystemFonts::Candidate::lacksFigures() const {
    return std::string_view(textOf(pattern_, FC_FONTFORMAT)) == "Type 1" &&
           figuresBeside(file()).empty();
}

bool SystemFonts::Candidate::isSameFontAs(const Candidate& other) const {
    const char* name = textOf(pattern_, FC_POSTSCRIPT_NAME);
    const char* otherName = textOf(other.pattern_, FC_POSTSCRIPT_NAME);
    return name != nullptr && otherName != nullptr && std::string_view(name) == otherName;
}

bool SystemFonts::Candidate::isVariable() const {
    return flagOf(pattern_, FC_VARIABLE);
}

bool SystemFonts::Candidate::isColored() const {
    return flagOf(pattern_, FC_COLOR);
}

const std::vector<SystemFonts::Candidate>& SystemFonts::sortedFor(const Drawing::Font& font) {
    const auto found = sorted_.find(font.getHashKey());
    if (found != sorted_.end())
        return found->second.candidates;
    if (sorted_.size() >= kMostSorted)
        sorted_.clear();
    return sorted_.emplace(font.getHashKey(), sort(font, kUsualStretch, Kinds::usual))
        .first->second.candidates;
}

const std::vector<SystemFonts::Candidate>& SystemFonts::allSortedFor(const Drawing::Font& font,
                                                                     int stretch) {
    const auto key = std::pair(font.getHashKey(), stretch);
    const auto found = allSorted_.find(key);
    if (found != allSorted_.end())
        return found->second.candidates;
    if (allSorted_.size() >= kMostSorted)
        allSorted_.clear();
    return allSorted_.emplace(key, sort(font, stretch, Kinds::all)).first->second.candidates;
}

/// Best matches alone are no use: fontconfig prefers OpenType fonts with CFF outlines for the
/// common families.
SystemFonts::Sorted SystemFonts::sort(const Drawing::Font& font, int stretch, Kinds kinds) {
    if (!config_)
        config_.reset(FcInitLoadConfigAndFonts());
    if (!config_)
        return {};
    const FcPtr<FcPattern> pattern = patternOf(font, stretch);
    FcConfigSubstitute(config_.get(), pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    Sorted sorted{
        FcPtr<FcFontSet>(FcFontSort(config_.get(), pattern.get(), FcFalse, nullptr, &result)), {}};
    for (int i = 0; sorted.fonts && i < sorted.fonts->nfont; ++i)
        if (kinds == Kinds::all ? isDrawable(sorted.fonts->fonts[i])
                                : isUsable(sorted.fonts->fonts[i]))
            sorted.candidates.emplace_back(sorted.fonts->fonts[i]);
    if (kinds == Kinds::all)
        dropUsualPlaces(sorted.candidates);
    preferFigures(sorted.candidates);
    return sorted;
}

/// A variable font is listed as a whole and at its usual place; the former stands for both.
void SystemFonts::dropUsualPlaces(std::vector<Candidate>& candidates) {
    std::set<std::string> variable;
    for (const Candidate& candidate : candidates)
        if (candidate.isVariable())
            variable.insert(candidate.file());
    std::erase_if(candidates, [&](const Candidate& candidate) {
        return !candidate.isVariable() && variable.contains(candidate.file());
    });
}

/// A Type 1 font is often installed twice, and only one of the files has its figures beside it.
void SystemFonts::preferFigures(std::vector<Candidate>& candidates) {
    for (Candidate& candidate : candidates) {
        if (!candidate.lacksFigures())
            continue;
        const auto other = std::ranges::find_if(candidates, [&](const Candidate& found) {
            return found.isSameFontAs(candidate) && !found.lacksFigures();
        });
        if (other != candidates.end())
            candidate = *other;
    }
}

SystemFonts::FcPtr<FcPattern> SystemFonts::patternOf(const Drawing::Font& font, int stretch) {
    const std::string family = font.getFontFamily().toUtf8();
    FcPtr<FcPattern> pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, FcWeightFromOpenType(font.getWeight()));
    FcPatternAddInteger(pattern.get(), FC_SLANT, slantOf(font.getSlant()));
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    if (stretch != kUsualStretch)
        FcPatternAddInteger(pattern.get(), FC_WIDTH, stretch);
    return pattern;
}

}  // namespace Fonts
