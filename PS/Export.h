#pragma once

/// Marks what the PS library shows to its users; everything else stays hidden in a shared
/// build.
#define PS_API __attribute__((visibility("default")))
