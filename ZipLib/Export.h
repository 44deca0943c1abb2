#pragma once

/// Marks what the ZipLib library shows to its users; everything else stays hidden in a shared
/// build.
#define ZIPLIB_API __attribute__((visibility("default")))
