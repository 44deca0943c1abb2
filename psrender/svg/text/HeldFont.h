#pragma once

#include "psrender/svg/css/TextStyle.h"
#include "psrender/svg/text/ChosenFont.h"

#include <memory>
#include <string_view>

namespace psrender::svg {

/// A font that a drawing brings along, which the back end finds under a name of its own as long as
/// somebody holds it. Safe to use from several threads.
class HeldFont {
public:
    /// The font in `bytes` in this style. Whoever asks for the same gets the same. Throws
    /// `Fonts::FontException` for bytes that are no font.
    static std::shared_ptr<const HeldFont> of(std::string_view bytes, const TextStyle& style);

    HeldFont(const HeldFont&) = delete;
    HeldFont& operator=(const HeldFont&) = delete;
    ~HeldFont();

    [[nodiscard]] const ChosenFont& font() const { return font_; }

private:
    explicit HeldFont(ChosenFont font);

    ChosenFont font_;
};

}  // namespace psrender::svg
