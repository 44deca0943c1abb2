#pragma once

#include "Core/SmartPtr.h"
#include "Drawing/Font.h"
#include "Drawing/ResourceManager.h"
#include "Fonts/Export.h"
#include "Fonts/FontProgram.h"

namespace Fonts {

/// The resources of one output context: fonts come from the process's `FontManager`.
class FONTS_API ResourceManagerImpl : public Drawing::ResourceManager {
public:
    ResourceManagerImpl();
    ~ResourceManagerImpl() override;

    /// Raises `FontNotFoundException` if no font fits.
    [[nodiscard]] virtual Core::SmartPtr<FontProgram> getFontProgram(
        const Core::SmartPtr<Drawing::Font>& font) const;
};

}  // namespace Fonts
