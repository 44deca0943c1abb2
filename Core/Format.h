#pragma once

#include "Core/Export.h"
#include "Core/String.h"

#include <cstdint>

namespace Core {

class CORE_API Format {
public:
    /// The whole text as a decimal number with an optional minus sign. Raises `FormatException`
    /// for anything else: an empty text, blanks, other characters, a number beyond 32 bits.
    static std::int32_t parseInt(const String& text);
};

}  // namespace Core
