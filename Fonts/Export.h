#pragma once

/// Marks what the Fonts library shows to its users; everything else stays hidden in a shared
/// build.
#define FONTS_API __attribute__((visibility("default")))
