#pragma once

#include "Core/SmartPtr.h"
#include "Core/String.h"
#include "Drawing/Font.h"
#include "Fonts/FontProgram.h"
#include "Fonts/internal/SystemFonts.h"

#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace Fonts {

/// What `FontManager` knows: the fonts that the host registered, the files that are open, and the
/// answers given so far. Safe to use from several threads.
class FontRegistry {
public:
    using Program = Core::SmartPtr<FontProgram>;

    struct Registration {
        Core::String family;
        int weight;
        Drawing::FontSlant slant;
        Program program;
    };

    void add(Registration registration);
    /// A file is opened once per face.
    Program open(const std::string& fileName, std::uint32_t faceIndex);
    /// Null if no font fits.
    Program find(const Drawing::Font& font);
    Program findFamily(const Drawing::Font& font);
    Program findFor(char32_t character, const Drawing::Font& font);
    /// Whatever its family; null if none is installed.
    Program findInstalled(const Drawing::Font& font);

private:
    Program openLocked(const std::string& fileName, std::uint32_t faceIndex);
    Program findLocked(const Drawing::Font& font);
    [[nodiscard]] Program search(const Drawing::Font& font);
    [[nodiscard]] Program searchFamily(const Drawing::Font& font);
    [[nodiscard]] Program registered(const Drawing::Font& font, bool anyStyle) const;
    [[nodiscard]] Program installed(const Drawing::Font& font);
    [[nodiscard]] Program openCandidate(const SystemFonts::Candidate& candidate);
    [[nodiscard]] Program searchFor(char32_t character, const Drawing::Font& font);

    std::mutex lock_;
    SystemFonts system_;
    std::vector<Registration> registrations_;
    std::map<std::pair<std::string, std::uint32_t>, Program> files_;
    std::map<Core::String, Program> answers_;  ///< by the font's hash key; null: none fits
    std::map<std::pair<char32_t, Core::String>, Program> characterAnswers_;
};

}  // namespace Fonts
