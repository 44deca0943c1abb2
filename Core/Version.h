#pragma once

/// The version of the libraries, for the preprocessor; the build takes it from here. Before 1.0 a
/// new minor version may change the interface, afterwards a new major one.
#define PSGRAPHICS_VERSION_MAJOR 0
#define PSGRAPHICS_VERSION_MINOR 1
#define PSGRAPHICS_VERSION_PATCH 0
/// Programs run with every later library of the same number, which is part of its file name
/// (libpsgraphics-PS.so.0). It goes up with each release that is not compatible with the one
/// before.
#define PSGRAPHICS_ABI 0
