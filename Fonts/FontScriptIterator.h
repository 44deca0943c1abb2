#pragma once

#include "Core/String.h"
#include "Fonts/Export.h"
#include "Fonts/FontScript.h"

#include <cstddef>
#include <cstdint>

namespace Fonts {

/// Splits a text into runs of one script each, in text order and without gaps:
///
///     FontScriptIterator runs(text, 0);
///     for (FontScript run; runs.next(run);) ...
///
/// Characters that many scripts share (blanks, digits, punctuation) and marks belong to the run
/// before them, at the start of the text to the one behind. A text of such characters alone is
/// one run of the script "Zyyy".
class FONTS_API FontScriptIterator {
public:
    /// `flags` must be 0.
    FontScriptIterator(Core::String text, int flags);

    /// Sets `run` to the next run; false, and `run` as it was, when there is none.
    bool next(FontScript& run);

private:
    struct Run {
        std::size_t end;
        std::uint32_t script;
    };
    [[nodiscard]] Run findRun() const;

    Core::String text_;
    std::size_t position_ = 0;
};

}  // namespace Fonts
