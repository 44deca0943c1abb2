#pragma once

#include "Core/String.h"
#include "PS/Export.h"

#include <cstdint>

namespace Drawing::PS {

/// What a printer is asked to do with the sheets: entries of a page device dictionary
/// (PLRM 6.2). A plain record.
struct PS_API PSPrintingOptions {
    PSPrintingOptions() = default;
    /// The arguments stand in the order of the fields, not in the order in which they are written.
    PSPrintingOptions(std::int32_t mediaPosition, std::int32_t jog, std::int32_t numCopies,
                      bool duplex, Core::String mediaColor);

    std::int32_t MediaPosition = 1;  ///< the tray
    std::int32_t Jog = 1;            ///< 0 to 3: when the stack of sheets is shifted
    std::int32_t NumCopies = 1;
    bool Duplex = false;
    /// A PostScript object as text, "(blue)" or "null"; written as it stands. Empty is "null".
    Core::String MediaColor = u"null";
};

}  // namespace Drawing::PS
