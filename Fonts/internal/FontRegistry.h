#pragma once

#include "Core/SmartPtr.h"
#include "Core/String.h"
#include "Drawing/Font.h"
#include "Fonts/FontManager.h"
#include "Fonts/FontProgram.h"
#include "Fonts/internal/SystemFonts.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace Fonts {

/// What `FontManager` knows: the fonts that the host registered, the files that are open, and the
/// answers given so far. Safe to use from several threads.
///
/// Memory does not grow with what was asked in the past: answers are forgotten when there are many,
/// and of the open files, beyond some dozens, only those that somebody holds are kept.
class FontRegistry {
public:
    using Program = Core::SmartPtr<FontProgram>;

    struct Registration {
        Core::String family;
        int weight;
        Drawing::FontSlant slant;
        Program program;
    };

    /// Takes the place of a registration of the same family, weight and slant.
    void add(Registration registration);
    /// Takes back every registration of `program`.
    void remove(const Program& program);
    /// A file is opened once per face.
    Program open(const std::string& fileName, std::uint32_t faceIndex);
    /// Null if no font fits.
    Program find(const Drawing::Font& font);
    Program findFamily(const Drawing::Font& font);
    Program findFor(char32_t character, const Drawing::Font& font);
    /// Whatever its family; null if none is installed.
    Program findInstalled(const Drawing::Font& font);

    /// Of any kind; null if there is none.
    Program findInstalledFamily(const FontManager::Wish& wish);
    Program findInstalledFor(char32_t character, const FontManager::Wish& wish, bool isPicture);

private:
    Program openLocked(const std::string& fileName, std::uint32_t faceIndex,
                       const std::vector<FontAxis>& axes = {});
    Program findLocked(const Drawing::Font& font);
    [[nodiscard]] Program search(const Drawing::Font& font);
    [[nodiscard]] Program searchFamily(const Drawing::Font& font);
    [[nodiscard]] Program registered(const Drawing::Font& font, bool anyStyle) const;
    [[nodiscard]] Program installed(const Drawing::Font& font);
    [[nodiscard]] Program openCandidate(const SystemFonts::Candidate& candidate,
                                        const std::vector<FontAxis>& axes = {});
    [[nodiscard]] Program searchFor(char32_t character, const Drawing::Font& font);
    void forgetAnswers();
    void closeUnusedFiles();

    static constexpr std::size_t kKeptFiles = 64;

    std::mutex lock_;
    SystemFonts system_;
    std::vector<Registration> registrations_;
    /// By name, face and places on its axes.
    std::map<std::tuple<std::string, std::uint32_t, std::string>, Program> files_;
    std::size_t fileLimit_ = kKeptFiles;       ///< beyond which unused ones are closed
    std::map<Core::String, Program> answers_;  ///< by the font's hash key; null: none fits
    std::map<std::pair<char32_t, Core::String>, Program> characterAnswers_;
};

/// The places on the axes of a variable font that a wish means, weight, width and slant included.
[[nodiscard]] std::vector<FontAxis> axesOf(const FontManager::Wish& wish);

}  // namespace Fonts
