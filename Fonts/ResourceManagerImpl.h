#pragma once

#include "Drawing/ResourceManager.h"
#include "Fonts/Export.h"

namespace Fonts {

/// The resources of one output context: fonts come from the process's `FontManager`.
class FONTS_API ResourceManagerImpl : public Drawing::ResourceManager {
public:
    ResourceManagerImpl();
    ~ResourceManagerImpl() override;
};

}  // namespace Fonts
