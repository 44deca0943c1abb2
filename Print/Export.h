#pragma once

/// Marks what the Print library shows to its users; everything else stays hidden in a shared
/// build.
#define PRINT_API __attribute__((visibility("default")))
