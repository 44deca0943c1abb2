#include "Drawing/Object3D.h"

namespace Drawing {

Object3D::~Object3D() = default;

}  // namespace Drawing
