#pragma once

#include "Core/Object.h"
#include "Drawing/Export.h"

namespace Drawing {

/// Gives access to what a context draws with but does not own. Every context makes its own.
class DRAWING_API ResourceManager : public Core::Object {
public:
    ~ResourceManager() override;
};

}  // namespace Drawing
