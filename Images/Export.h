#pragma once

/// Marks what the Images library shows to its users; everything else stays hidden in a shared
/// build.
#define IMAGES_API __attribute__((visibility("default")))
