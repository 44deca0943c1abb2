#pragma once

#include "Core/Object.h"
#include "Drawing/Export.h"

namespace Drawing {

/// A three-dimensional scene embedded in a page, for back ends that can show one.
class DRAWING_API Object3D : public Core::Object {
public:
    ~Object3D() override;
};

}  // namespace Drawing
