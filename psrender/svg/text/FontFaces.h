#pragma once

#include "psrender/svg/css/TextStyle.h"
#include "psrender/svg/text/ChosenFont.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class ImageLinks;

/// The fonts that a drawing brings along (`@font-face`): in itself, in files of its folder, or
/// installed ones under another name. A font is opened when text asks for it, and known to the
/// back end as long as some text is set in it.
class FontFaces {
public:
    /// `blocks` is what stands between the braces of the rules, and `links` tells where files lie;
    /// both must outlive it, as must the warnings.
    FontFaces(const std::vector<std::string_view>& blocks, const ImageLinks& links,
              Warnings& warnings);

    [[nodiscard]] bool has(std::string_view family) const;
    /// The fonts of `family` nearest to the style, those that come last in the drawing first.
    [[nodiscard]] std::vector<ChosenFont> find(std::string_view family, const TextStyle& style);

private:
    struct Face {
        std::string_view family;
        std::string_view sources;
        int lightest = Drawing::Font::kRegular;
        int boldest = Drawing::Font::kRegular;
        bool isSlanted = false;
        std::vector<CharacterRange> ranges;
    };

    static std::optional<Face> parse(std::string_view block);
    [[nodiscard]] static int distance(const Face& face, const TextStyle& style);
    std::optional<ChosenFont> open(const Face& face, const TextStyle& style);
    std::optional<ChosenFont> openSource(std::string_view source, const TextStyle& style);
    [[nodiscard]] std::string read(std::string_view address);
    static ChosenFont installed(std::string_view name, const TextStyle& style);

    const ImageLinks& links_;
    Warnings& warnings_;
    std::vector<Face> faces_;
    std::size_t bytesLeft_;
};

}  // namespace psrender::svg
