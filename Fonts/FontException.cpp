#include "Fonts/FontException.h"

namespace Fonts {

FontException::FontException(const std::string& fileName, const std::string& reason)
    : Exception("FontProgram", 1, fileName + ": " + reason) {}

FontNotFoundException::FontNotFoundException(const std::string& family)
    : Exception("FontManager", 1,
                "no font of the family \"" + family +
                    "\" was found: install it, register a file for it, or ask for one of the "
                    "standard fonts such as Helvetica") {}

}  // namespace Fonts
