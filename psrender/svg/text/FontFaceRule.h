#pragma once

#include "psrender/svg/css/TextStyle.h"
#include "psrender/svg/text/ChosenFont.h"

#include <optional>
#include <string_view>
#include <vector>

namespace psrender::svg {

/// Where a font comes from.
struct FontSource {
    std::string_view address;  ///< or the name of an installed one
    bool isInstalled = false;
};

/// What a drawing says of a font that it brings along (`@font-face`).
struct FontFaceRule {
    std::string_view family;
    std::vector<FontSource> sources;  ///< the first that can be used counts
    int lightest = Drawing::Font::kRegular;
    int boldest = Drawing::Font::kRegular;
    bool isSlanted = false;
    std::vector<CharacterRange> ranges;

    /// Reads what stands between the braces, which must outlive the rule; nothing for a font
    /// without a name or a source.
    static std::optional<FontFaceRule> parse(std::string_view block);
    /// How far it is from what a style asks for.
    [[nodiscard]] int distance(const TextStyle& style) const;
};

}  // namespace psrender::svg
