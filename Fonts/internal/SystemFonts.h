#pragma once

#include "Core/String.h"
#include "Drawing/Font.h"

#include <fontconfig/fontconfig.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Fonts {

/// The fonts installed on this machine, as fontconfig knows them; none on a machine without
/// fonts or without a configuration. Used by one thread at a time.
class SystemFonts {
public:
    /// A font file of a kind that the library can use.
    class Candidate {
    public:
        explicit Candidate(FcPattern* pattern) : pattern_(pattern) {}

        [[nodiscard]] std::string file() const;
        [[nodiscard]] std::uint32_t faceIndex() const;
        [[nodiscard]] bool isOfFamily(const Core::String& family) const;
        [[nodiscard]] bool covers(char32_t character) const;
        /// Whether it is a Type 1 file without the figures that tell its kerning.
        [[nodiscard]] bool lacksFigures() const;
        [[nodiscard]] bool isSameFontAs(const Candidate& other) const;

        [[nodiscard]] bool isVariable() const;
        [[nodiscard]] bool isColored() const;

    private:
        FcPattern* pattern_;
    };

    /// All usable fonts, those that fit the description best coming first. Valid until the next
    /// call.
    const std::vector<Candidate>& sortedFor(const Drawing::Font& font);
    /// The same with fonts of every kind and of this width, in per cent of the usual one.
    const std::vector<Candidate>& allSortedFor(const Drawing::Font& font, int stretch);

private:
    struct Closer {
        void operator()(FcConfig* config) const { FcConfigDestroy(config); }
        void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
        void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    };
    template <class T>
    using FcPtr = std::unique_ptr<T, Closer>;

    struct Sorted {
        FcPtr<FcFontSet> fonts;
        std::vector<Candidate> candidates;
    };
    /// Which fonts are candidates.
    enum class Kinds : std::uint8_t { usual, all };

    Sorted sort(const Drawing::Font& font, int stretch, Kinds kinds);
    static void dropUsualPlaces(std::vector<Candidate>& candidates);
    static void preferFigures(std::vector<Candidate>& candidates);
    static FcPtr<FcPattern> patternOf(const Drawing::Font& font, int stretch);

    FcPtr<FcConfig> config_;
    std::map<Core::String, Sorted> sorted_;                     ///< by the font's hash key
    std::map<std::pair<Core::String, int>, Sorted> allSorted_;  ///< the same, and its width
};

}  // namespace Fonts
