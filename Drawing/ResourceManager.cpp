#include "Drawing/ResourceManager.h"

namespace Drawing {

ResourceManager::~ResourceManager() = default;

}  // namespace Drawing
