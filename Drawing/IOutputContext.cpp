#include "Drawing/IOutputContext.h"

namespace Drawing {

IOutputContext::~IOutputContext() = default;

}  // namespace Drawing
