#include "PS/PSPrintingOptions.h"

#include <utility>

namespace Drawing::PS {

PSPrintingOptions::PSPrintingOptions(std::int32_t mediaPosition, std::int32_t jog,
                                     std::int32_t numCopies, bool duplex, Core::String mediaColor)
    : MediaPosition(mediaPosition),
      Jog(jog),
      NumCopies(numCopies),
      Duplex(duplex),
      MediaColor(std::move(mediaColor)) {}

}  // namespace Drawing::PS
