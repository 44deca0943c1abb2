#include "Drawing/RowSource.h"

namespace Drawing {

RowSource::~RowSource() = default;

}  // namespace Drawing
