#pragma once

namespace Fonts {

class SfntBuilder;

/// Gives a TrueType file 4-byte 'loca' entries if its glyphs, each filled up to a multiple of
/// four bytes, take more room than 2-byte entries can tell (131070 bytes). Whoever lays out the
/// glyphs anew on such multiples can then keep the size of the entries. Whether it was needed.
bool makeLocaLongIfNeeded(SfntBuilder& file);

}  // namespace Fonts
