#pragma once

#include "psrender/plan/Budget.h"
#include "psrender/plan/geometry/Polyline.h"
#include "psrender/scene/DisplayList.h"

#include <polyclipping/clipper.hpp>

#include <cstddef>
#include <optional>
#include <vector>

namespace psrender::plan {

/// How far a curve's chords may be from it, in points: well below a device pixel.
inline constexpr double kCurveTolerance = 0.01;

/// An area of the page in whole units of a fine grid. What the operations return is in its
/// simplest form: borders do not cross, outer ones run one way and holes the other. An operation
/// spends what it takes, and gives nothing where that would be too much.
class Polygons {
public:
    Polygons() = default;
    explicit Polygons(const scene::Rect& box);
    /// All lines closed, not in the simplest form yet.
    explicit Polygons(const std::vector<Polyline>& lines);

    void append(const Polygons& other);

    [[nodiscard]] std::optional<Polygons> simplified(scene::FillRule rule, Budget& budget) const;
    [[nodiscard]] std::optional<Polygons> common(const Polygons& other, Budget& budget) const;
    [[nodiscard]] std::optional<Polygons> without(const Polygons& other, Budget& budget) const;
    /// Takes away what is so thin that it stems from rounding.
    void removeSlivers();

    [[nodiscard]] bool empty() const { return paths_.empty(); }
    [[nodiscard]] std::size_t countCorners() const;
    /// The box around all corners, in points; nothing without a corner.
    [[nodiscard]] std::optional<scene::Rect> box() const;
    /// Whether it is all of `whole`, of which it is a part, but for what rounding leaves. Both in
    /// the simplest form, as for what follows.
    [[nodiscard]] bool isAllOf(const Polygons& whole) const;
    [[nodiscard]] bool contains(scene::Point p) const;
    /// Whether a border runs through `box`, or may.
    [[nodiscard]] bool hasBorderIn(const scene::Rect& box) const;
    /// The borders as an outline, mapped by `fromPage`.
    [[nodiscard]] scene::Outline outline(const scene::Affine& fromPage = {}) const;

private:
    explicit Polygons(ClipperLib::Paths paths) : paths_(std::move(paths)) {}
    [[nodiscard]] std::optional<Polygons> combined(ClipperLib::ClipType how, scene::FillRule rule,
                                                   const Polygons& other, Budget& budget) const;
    /// In grid units.
    [[nodiscard]] double area() const;
    [[nodiscard]] double borderLength() const;

    ClipperLib::Paths paths_;
};

}  // namespace psrender::plan
