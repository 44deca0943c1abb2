#pragma once

#include "Print/PrintSettings.h"

#include <string>

namespace Drawing::Print {

/// The lines that ask a printer for what `request` holds; empty if it holds nothing. A device that
/// does not know an entry goes on without it. Raises `PrintException` for values that no printer
/// has.
[[nodiscard]] std::string printingText(const PrintingRequest& request);

}  // namespace Drawing::Print
