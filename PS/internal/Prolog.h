#pragma once

namespace Drawing::PS {

/// The end of the header comments and the procedure set: the short operators that pages and
/// resources are written in. 52 lines, each with its line end.
extern const char16_t* const kProcedureSet;

/// The procedure that `kshow` calls between two glyphs of a standard font: looks the pair up in
/// the font's kerning table and moves. 34 lines, each with its line end.
extern const char16_t* const kKerningFunction;

/// The body that "/TjfillKern" and "/TjstrokeKern" share but for one name, {0}: walks an array
/// of strings, which it passes on, and numbers, by which it moves. The last line ends with a
/// line end of its own.
extern const char16_t* const kKernedShowBody;

}  // namespace Drawing::PS
