#pragma once

#include "psrender/svg/css/TextStyle.h"
#include "psrender/svg/text/FontFaceRule.h"

#include <cstddef>
#include <map>
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
    std::optional<ChosenFont> open(const FontFaceRule& face, const TextStyle& style);
    std::optional<ChosenFont> opened(std::string_view address, const TextStyle& style);
    static std::optional<ChosenFont> installed(std::string_view name, const TextStyle& style);
    [[nodiscard]] std::string read(std::string_view address);

    const ImageLinks& links_;
    Warnings& warnings_;
    std::vector<FontFaceRule> faces_;
    std::map<const char*, std::string> read_;  ///< by where the address stands in the drawing
    std::size_t bytesLeft_;
};

}  // namespace psrender::svg
