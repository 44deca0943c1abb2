#pragma once

#include "psrender/plan/geometry/Polyline.h"
#include "psrender/scene/Geometry.h"
#include "psrender/scene/Outline.h"

#include <polyclipping/clipper.hpp>

#include <optional>
#include <vector>

namespace psrender::plan {

/// Areas of the page, in whole units of a fine grid. What the operations below return is in its
/// simplest form: borders do not cross, outer ones run one way and holes the other.
using Polygons = ClipperLib::Paths;
using ClipperLib::PolyFillType;

/// Grid units a point. Pages reach a million points, and Clipper is fast below 2^30.
inline constexpr double kGridUnits = 1000;
/// How far a curve's chords may be from it, in points: well below a device pixel.
inline constexpr double kCurveTolerance = 0.01;

/// Lines on the page as polygons, all closed.
Polygons toPolygons(const std::vector<Polyline>& lines);
Polygons toPolygons(const scene::Rect& box);

/// The borders as an outline, mapped by `fromPage`.
scene::Outline outlineOf(const Polygons& polygons, const scene::Affine& fromPage = {});

/// The box around all corners, in points; nothing without a corner.
std::optional<scene::Rect> boxOf(const Polygons& polygons);

std::size_t countCorners(const Polygons& polygons);

/// What `subject`, filled by `rule`, and `other`, filled by the non-zero rule, make together.
/// Nothing if it would take too long. What it takes is added to `work`, if that is not null, in
/// comparisons of edges.
std::optional<Polygons> combine(ClipperLib::ClipType how, Polygons subject, PolyFillType rule,
                                Polygons other, std::size_t* work = nullptr);

/// The simplest form of polygons that are filled by `rule`. Nothing if it would take too long.
std::optional<Polygons> simplify(Polygons polygons, PolyFillType rule);

}  // namespace psrender::plan
