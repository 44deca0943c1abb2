#pragma once

#include "psrender/scene/Geometry.h"

/// What pages may hold when they are painted: what interpreters compute with.
namespace psrender::plan {

/// Interpreters compute in device pixels of limited range: farther than this from the page's
/// corner, in points, nothing may lie. Well beyond every page and line width.
inline constexpr double kReach = 1e6;
inline constexpr scene::Rect kWithinReach{-kReach, -kReach, 2 * kReach, 2 * kReach};
/// Well within a 32-bit float, which is what numbers are written as.
inline constexpr double kLargestNumber = 1e30;
/// A 32-bit float's precision, of a number's own size.
inline constexpr double kFloatPrecision = 6e-8;
/// The thinnest gradient and tile that can be divided by, in points.
inline constexpr double kThinnestPaint = 1e-4;
inline constexpr double kLongestPaint = 1e9;
/// A tile's sides, in points on the page.
inline constexpr double kLeastTile = 1e-3;
inline constexpr double kMostTile = 1e5;
/// Dashes with a shorter period, in points, round to nothing or come by the million.
inline constexpr double kFinestDashes = 0.01;
/// Stops that all periods of a gradient may take within what it paints.
inline constexpr double kMostStops = 20'000;

}  // namespace psrender::plan
