#pragma once

#include "Core/Exception.h"
#include "Fonts/Export.h"

#include <string>

namespace Fonts {

/// A font file that cannot be used: missing, damaged, or of a kind that the library does not
/// read. The message names the file and the reason.
class FONTS_API FontException : public Core::Exception {
public:
    FontException(const std::string& fileName, const std::string& reason);
};

/// No font answers a description. The message names the family.
class FONTS_API FontNotFoundException : public Core::Exception {
public:
    explicit FontNotFoundException(const std::string& family);
};

}  // namespace Fonts
