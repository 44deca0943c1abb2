#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace Drawing::Print {

/// Shares the characters of a cluster out among its glyphs, so that readers find them whole and in
/// order: one to each glyph that advances, the rest to the last of these. Readers sort text by
/// place, and a gap that shows no text divides a word, so glyphs without an advance (marks) get
/// none, unless there are no others. One text for each glyph, into `characters`; `advances` in any
/// unit, in the order of the glyphs.
[[nodiscard]] std::vector<std::u32string_view> shareOut(std::u32string_view characters,
                                                        std::span<const float> advances);

}  // namespace Drawing::Print
