#pragma once

#include "Core/Export.h"
#include "Core/String.h"

#include <functional>

namespace Core {

/// Where the library's warnings go. Safe to use from several threads.
class CORE_API Log {
public:
    using Sink = std::function<void(const String& text)>;

    /// Passes `text` to the installed sink; without one it is a line on standard error.
    static void warning(const String& text);
    /// Installs `sink` for the whole process and returns the one before; an empty sink stands
    /// for standard error. The sink is called under a lock: it must not log itself.
    static Sink setSink(Sink sink);
};

}  // namespace Core
