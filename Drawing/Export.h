#pragma once

/// Marks what the Drawing library shows to its users; everything else stays hidden in a shared
/// build.
#define DRAWING_API __attribute__((visibility("default")))
