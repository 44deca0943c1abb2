#pragma once

#include "Core/ByteArray.h"
#include "Core/Stream.h"
#include "Core/String.h"

#include <vector>

namespace Drawing::PS {

/// Writes the segments of a Type 1 program so that it defines the font `name`, whose encoding maps
/// the codes 0, 1, 2 ... to `glyphNames`. A segment is the byte 128, a type (1 clear text, 2
/// encrypted, 3 end), and but for the end four bytes of length, lowest first, and the data (Adobe
/// Type 1 Font Format, Adobe Technical Note 5040). Anything else raises
/// `UnreacheableCodeException`; a length beyond the data is cut to it.
void writeType1Program(Core::IO::Stream& stream, const Core::ByteArray& program,
                       const Core::String& name, const std::vector<Core::String>& glyphNames);

}  // namespace Drawing::PS
