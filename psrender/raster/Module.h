#pragma once

#include "psrender/raster/Rasterizer.h"

#include <string>

namespace psrender::raster {

/// Adds a folder in which the module is looked for, before those beside the program and in its
/// installation. To be called before the module is asked for.
void lookInFolder(std::string folder);

/// The rasterizer of the module "psrender-raster.so", which is loaded when this is called first
/// and stays; null if it is not there or lacks libraries. Safe to call from several threads, to
/// use from one at a time.
Rasterizer* loadRasterizer(TextOutlines outlines);

}  // namespace psrender::raster
