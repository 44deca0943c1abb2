#pragma once

#include "psrender/scene/DisplayList.h"

#include <optional>
#include <vector>

namespace psrender::plan {

/// Finds the colour of what lies beneath pictures. Looks at painted items, from the topmost down,
/// and gives up after some millions of steps on one page.
class Ground {
public:
    /// `painted` must outlive the ground and hold opaque items only, whose fills go by the
    /// non-zero rule.
    explicit Ground(const std::vector<scene::Item>& painted) : painted_(painted) {}

    /// The only colour beneath the square of side 1 mapped by `picture`, which must have an
    /// inverse: white where nothing was painted. Nothing if there are several colours or if it is
    /// not found out. Text is not seen.
    std::optional<scene::Color> beneath(const scene::Affine& picture);

private:
    enum class Place : std::uint8_t { outside, across, inside };
    /// A colour that covers everything, or that the area cannot have one; nothing while open.
    using Answer = std::optional<std::optional<scene::Color>>;

    // All in the space where the picture is the square of side 1, so that it may lie askew.
    Answer look(const std::vector<scene::Item>& items, const scene::Affine& map,
                const scene::Rect& area);
    Answer look(const scene::Shape& shape, const scene::Affine& map, const scene::Rect& area);
    Place placeOf(const scene::Shape& shape, const scene::Affine& map, const scene::Rect& area);

    const std::vector<scene::Item>& painted_;
    std::size_t steps_ = 20'000'000;
};

}  // namespace psrender::plan
