#include "Core/Object.h"

namespace Core {

Object::~Object() = default;

void Object::OnFinalRelease() {
    delete this;
}

}  // namespace Core
