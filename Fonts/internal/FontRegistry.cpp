#include "Fonts/internal/FontRegistry.h"

#include "Core/Log.h"
#include "Fonts/FontException.h"
#include "Fonts/StandardFont.h"
#include "Fonts/internal/FamilyClass.h"
#include "Fonts/internal/FontLoader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace Fonts {

namespace {

constexpr int kBoldFrom = 600;

bool isSameStyle(const FontRegistry::Registration& registration, const Drawing::Font& font) {
    const auto upright = Drawing::FontSlant::upright;
    return (registration.weight >= kBoldFrom) == (font.getWeight() >= kBoldFrom) &&
           (registration.slant == upright) == (font.getSlant() == upright);
}

/// How far a style is from what is asked: slant counts more than weight.
int distance(const FontRegistry::Registration& registration, const Drawing::Font& font) {
    constexpr int otherSlant = 1000;
    return std::abs(registration.weight - font.getWeight()) +
           (registration.slant == font.getSlant() ? 0 : otherSlant);
}

/// Families take weight and slant, the PostScript name of a bold or slanted member is that member.
/// "Times-Roman" stands for its family as "Helvetica" does.
FontRegistry::Program standardFont(const Drawing::Font& font) {
    const Core::String& name = font.getFontFamily();
    const Core::String family = name.equalsNoCase(u"Times-Roman") ? Core::String(u"Times") : name;
    if (auto member = StandardFont::findByStyle(family, font.getWeight(), font.getSlant()))
        return member;
    return StandardFont::findByName(name);
}

/// Keeps an answer; too many are all forgotten.
template <class Answers>
FontRegistry::Program remember(Answers& answers, const typename Answers::key_type& key,
                               FontRegistry::Program answer) {
    constexpr std::size_t kMost = 10000;
    if (answers.size() >= kMost)
        answers.clear();
    return answers.emplace(key, std::move(answer)).first->second;
}

FontRegistry::Program standIn(const Drawing::Font& font) {
    return StandardFont::findByStyle(standInFor(font.getFontFamily()), font.getWeight(),
                                     font.getSlant());
}

}  // namespace

void FontRegistry::add(Registration registration) {
    const std::scoped_lock lock(lock_);
    std::erase_if(registrations_, [&](const Registration& other) {
        return other.family.equalsNoCase(registration.family) &&
               other.weight == registration.weight && other.slant == registration.slant;
    });
    registrations_.push_back(std::move(registration));
    forgetAnswers();
}

void FontRegistry::remove(const Program& program) {
    const std::scoped_lock lock(lock_);
    std::erase_if(registrations_,
                  [&](const Registration& other) { return other.program == program; });
    forgetAnswers();
}

void FontRegistry::forgetAnswers() {
    answers_.clear();
    characterAnswers_.clear();
}

/// A program that nobody but the registry holds is opened again when it is asked for. The limit
/// doubles with what is in use, so that looking for the others takes no time to speak of.
void FontRegistry::closeUnusedFiles() {
    if (files_.size() < fileLimit_)
        return;
    forgetAnswers();
    std::erase_if(files_, [](const auto& file) { return file.second->getReferenceCount() == 1; });
    fileLimit_ = std::max(kKeptFiles, files_.size() * 2);
}

FontRegistry::Program FontRegistry::open(const std::string& fileName, std::uint32_t faceIndex) {
    const std::scoped_lock lock(lock_);
    return openLocked(fileName, faceIndex);
}

FontRegistry::Program FontRegistry::find(const Drawing::Font& font) {
    const std::scoped_lock lock(lock_);
    return findLocked(font);
}

FontRegistry::Program FontRegistry::findFamily(const Drawing::Font& font) {
    const std::scoped_lock lock(lock_);
    return searchFamily(font);
}

FontRegistry::Program FontRegistry::findFor(char32_t character, const Drawing::Font& font) {
    const std::scoped_lock lock(lock_);
    const auto key = std::pair(character, font.getHashKey());
    const auto known = characterAnswers_.find(key);
    if (known != characterAnswers_.end())
        return known->second;
    return remember(characterAnswers_, key, searchFor(character, font));
}

FontRegistry::Program FontRegistry::findInstalled(const Drawing::Font& font) {
    const std::scoped_lock lock(lock_);
    for (const SystemFonts::Candidate& candidate : system_.sortedFor(font))
        if (auto program = openCandidate(candidate))
            return program;
    return {};
}

FontRegistry::Program FontRegistry::findInstalledFamily(const FontManager::Wish& wish) {
    const std::scoped_lock lock(lock_);
    for (const SystemFonts::Candidate& candidate : system_.allSortedFor(*wish.font, wish.stretch))
        if (candidate.isOfFamily(wish.font->getFontFamily()))
            if (auto program = openCandidate(candidate, axesOf(wish)))
                return program;
    return {};
}

FontRegistry::Program FontRegistry::findInstalledFor(char32_t character,
                                                     const FontManager::Wish& wish,
                                                     bool isPicture) {
    const std::scoped_lock lock(lock_);
    const auto& candidates = system_.allSortedFor(*wish.font, wish.stretch);
    for (const bool wantsPicture : {isPicture, !isPicture})
        for (const SystemFonts::Candidate& candidate : candidates) {
            if (candidate.isColored() != wantsPicture || !candidate.covers(character))
                continue;
            auto program = openCandidate(candidate, axesOf(wish));
            if (program && program->isEmbeddable() && program->covers(character))
                return program;
        }
    return {};
}

FontRegistry::Program FontRegistry::openLocked(const std::string& fileName, std::uint32_t faceIndex,
                                               const std::vector<FontAxis>& axes) {
    std::string places;
    for (const FontAxis& axis : axes)
        places +=
            std::to_string(axis.tag) + "=" + std::to_string(std::lround(axis.value * 100)) + ";";
    const auto key = std::tuple(fileName, faceIndex, places);
    const auto known = files_.find(key);
    if (known != files_.end())
        return known->second;
    closeUnusedFiles();
    return files_.emplace(key, loadFont(FontBytes(fileName), faceIndex, axes)).first->second;
}

FontRegistry::Program FontRegistry::findLocked(const Drawing::Font& font) {
    const auto known = answers_.find(font.getHashKey());
    if (known != answers_.end())
        return known->second;
    return remember(answers_, font.getHashKey(), search(font));
}

FontRegistry::Program FontRegistry::search(const Drawing::Font& font) {
    auto program = searchFamily(font);
    return program ? program : standIn(font);
}

FontRegistry::Program FontRegistry::searchFamily(const Drawing::Font& font) {
    if (auto program = registered(font, false))
        return program;
    if (auto program = standardFont(font))
        return program;
    if (auto program = installed(font))
        return program;
    return registered(font, true);
}

/// The registration nearest in style; the latest of several alike.
FontRegistry::Program FontRegistry::registered(const Drawing::Font& font, bool anyStyle) const {
    const Registration* best = nullptr;
    for (const Registration& registration : registrations_)
        if (registration.family.equalsNoCase(font.getFontFamily()) &&
            (anyStyle || isSameStyle(registration, font)) &&
            (!best || distance(registration, font) <= distance(*best, font)))
            best = &registration;
    return best ? best->program : Program();
}

FontRegistry::Program FontRegistry::installed(const Drawing::Font& font) {
    for (const SystemFonts::Candidate& candidate : system_.sortedFor(font))
        if (candidate.isOfFamily(font.getFontFamily()))
            if (auto program = openCandidate(candidate))
                return program;
    return {};
}

/// An installed file that cannot be used is reported and passed over.
FontRegistry::Program FontRegistry::openCandidate(const SystemFonts::Candidate& candidate,
                                                  const std::vector<FontAxis>& axes) {
    try {
        return openLocked(candidate.file(), candidate.faceIndex(),
                          candidate.isVariable() ? axes : std::vector<FontAxis>());
    } catch (const FontException& error) {
        Core::Log::warning(error.getMessage());
        return {};
    }
}

FontRegistry::Program FontRegistry::searchFor(char32_t character, const Drawing::Font& font) {
    if (auto program = findLocked(font); program && program->covers(character))
        return program;
    for (const Registration& registration : registrations_)
        if (registration.program->covers(character))
            return registration.program;
    for (const SystemFonts::Candidate& candidate : system_.sortedFor(font))
        if (candidate.covers(character)) {
            auto program = openCandidate(candidate);
            if (program && program->isEmbeddable() && program->covers(character))
                return program;
        }
    for (const char16_t* name : {u"Symbol", u"ZapfDingbats"})
        if (auto program = StandardFont::findByName(name); program->covers(character))
            return program;
    return {};
}

std::vector<FontAxis> axesOf(const FontManager::Wish& wish) {
    constexpr std::uint32_t kWeight = 0x77676874;  // "wght"
    constexpr std::uint32_t kWidth = 0x77647468;   // "wdth"
    constexpr std::uint32_t kItalic = 0x6974616C;  // "ital"
    constexpr std::uint32_t kSlant = 0x736C6E74;   // "slnt"
    constexpr float kObliqueAngle = -14;
    std::vector<FontAxis> axes{{kWeight, static_cast<float>(wish.font->getWeight())},
                               {kWidth, static_cast<float>(wish.stretch)}};
    if (wish.font->getSlant() != Drawing::FontSlant::upright) {
        axes.push_back({kItalic, 1});
        axes.push_back({kSlant, kObliqueAngle});
    }
    for (const FontAxis& axis : wish.axes) {
        std::erase_if(axes, [&](const FontAxis& other) { return other.tag == axis.tag; });
        axes.push_back(axis);
    }
    return axes;
}

}  // namespace Fonts
