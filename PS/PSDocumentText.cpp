#include "Core/Exception.h"
#include "PS/PSDocument.h"
#include "PS/fonts/PSFontResource.h"

namespace Drawing::PS {

void PSDocument::drawText(const Core::String& /*text*/, int /*flags*/, float /*x*/, float /*y*/,
                          float /*spacing*/, bool /*flag*/) {
    throw Core::UnreacheableCodeException("PSDocument", 1);
}

}  // namespace Drawing::PS
