#include "Fonts/FontProgram.h"

namespace Fonts {

FontProgram::~FontProgram() = default;

}  // namespace Fonts
