#pragma once

#include "Core/Export.h"
#include "Core/String.h"

namespace Core::IO {

class CORE_API FileSystem {
public:
    /// A name in the system's temporary directory (TMPDIR, else /tmp) that begins with `prefix`,
    /// ends in 128 random bits, and so belongs to no file. Nothing is created.
    static String getTempFileName(const String& prefix);
};

}  // namespace Core::IO
