#pragma once

#include "Core/ByteArray.h"
#include "Print/fonts/internal/CharString.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Drawing::Print {

/// What drawing takes of a Type 1 program: its dictionaries' values as the font spells them, its
/// charstrings and subroutines without encryption.
struct Type1Program {
    using Values = std::map<std::string, std::string, std::less<>>;

    /// Reads segments (`Fonts::FontProgram::getProgramData`).
    static Type1Program read(const Core::ByteArray& segments);

    /// The value of a key of the font dictionary as text; empty if there is none.
    [[nodiscard]] std::string value(std::string_view key) const;
    /// Whether a charstring can be taken out as it is: not from a font that blends several
    /// designs.
    [[nodiscard]] bool isPlain() const;

    Values font;   ///< keys of the font dictionary
    Values hints;  ///< keys of /Private that tell how to draw
    std::map<int, CharString::Bytes> subroutines;
    std::map<std::string, CharString::Bytes, std::less<>> charStrings;
};

/// What a charstring needs besides itself, found by running it.
class CharStringUse {
public:
    explicit CharStringUse(const Type1Program& program) : program_(program) {}

    /// Adds what the glyph needs. The advance that it sets, in its font's units.
    double add(const CharString::Bytes& charString);

    [[nodiscard]] const std::set<int>& subroutines() const { return subroutines_; }
    /// Codes of StandardEncoding whose glyphs make up accented letters.
    [[nodiscard]] const std::set<int>& parts() const { return parts_; }

private:
    void run(const CharString::Bytes& charString, int depth);
    void runCommand(std::uint8_t command, int depth);
    void runEscaped(std::uint8_t command);
    double take();

    const Type1Program& program_;
    std::vector<double> stack_;
    std::vector<double> passed_;  ///< to and from other subroutines
    double advance_ = 0;
    std::set<int> subroutines_;
    std::set<int> parts_;
};

}  // namespace Drawing::Print
