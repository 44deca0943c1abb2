#include "PS/fonts/PSFontResource.h"

#include "Core/MTInteger.h"
#include "Core/StringFormatStream.h"
#include "PS/internal/Names.h"

#include <utility>

namespace Drawing::PS {

namespace {

/// Counts the font resources of the process, whatever their document.
constinit Core::Threading::MTInteger resourceCounter;

}  // namespace

PSFontResource::PSFontResource(const Font& font, Core::SmartPtr<Fonts::FontProgram> program,
                               Core::String family, bool kernText)
    : fontProgram(std::move(program)),
      number(resourceCounter.increment()),
      familyName(std::move(family)),
      resourceKey(Core::StringFormatStream(u"{0}+{1}") << font.getHashKey() << number),
      kerning(kernText) {}

PSFontResource::~PSFontResource() = default;

Core::String PSFontResource::getName() const {
    return fontProgram->getMetrics().postScriptName;
}

Core::String PSFontResource::getResourceName() const {
    return Names::font(number);
}

}  // namespace Drawing::PS
