#pragma once

/// Marks what the Core library shows to its users; everything else stays hidden in a shared
/// build.
#define CORE_API __attribute__((visibility("default")))
