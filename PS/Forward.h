#pragma once

#include "Drawing/Forward.h"

/// Names of the PostScript back end, for headers that only mention them.
namespace Drawing::PS {

class PSDocument;
class PSDocumentFragment;
class PSFontResource;
class PSGradient;
class PSGraphicsState;
class PSPatternBrush;
class PointWriter;
struct PSPrintingOptions;

}  // namespace Drawing::PS
