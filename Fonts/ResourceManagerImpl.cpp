#include "Fonts/ResourceManagerImpl.h"

namespace Fonts {

ResourceManagerImpl::ResourceManagerImpl() = default;
ResourceManagerImpl::~ResourceManagerImpl() = default;

}  // namespace Fonts
