#include "Fonts/ResourceManagerImpl.h"

#include "Fonts/FontManager.h"

namespace Fonts {

ResourceManagerImpl::ResourceManagerImpl() = default;
ResourceManagerImpl::~ResourceManagerImpl() = default;

Core::SmartPtr<FontProgram> ResourceManagerImpl::getFontProgram(
    const Core::SmartPtr<Drawing::Font>& font) const {
    return FontManager::getFont(font);
}

}  // namespace Fonts
