#pragma once

#include "Drawing/ColorFieldBrush.h"
#include "Drawing/GradientBrush.h"
#include "Print/ColorConverter.h"
#include "Print/internal/Box.h"
#include "Print/internal/TextBuffer.h"

namespace Drawing::Print {

/// Makes `brush` the current paint: a shading pattern (PLRM 4.9.3) whose function stands beside it,
/// so that every gradient has its own. `visible` is what can be seen of the space in which the
/// brush is used, as far as repeated stops must reach. Raises `PrintException` for a gradient
/// without stops or with a negative radius.
void writeGradient(const GradientBrush& brush, const ColorConverter* converter, const Box& visible,
                   TextBuffer& out);
/// The same for a field of colours.
void writeColorField(const ColorFieldBrush& brush, const ColorConverter* converter,
                     TextBuffer& out);
/// "[1 0 0 1 0 0]", or the name of the identity.
void writeMatrix(const Matrix& m, TextBuffer& out);

}  // namespace Drawing::Print
