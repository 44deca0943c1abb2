#pragma once

#include "psrender/plan/colour/Tint.h"
#include "psrender/scene/DisplayList.h"

#include <map>
#include <memory>
#include <tuple>

namespace psrender::plan {

/// Paints and pictures as they look beneath an even tint. The tiles and symbols that it makes are
/// shared between all that are alike.
class Recoloring {
public:
    /// `paint` must be opaque.
    scene::Paint beneath(const Tint& tint, const scene::Paint& paint);
    /// Any paint with a share of its opacity, over white.
    scene::Paint overWhite(const scene::Paint& paint, double share);

private:
    using List = std::shared_ptr<const scene::ItemList>;
    using Key = std::tuple<List, std::uint8_t, std::uint8_t, std::uint8_t, double>;

    List beneath(const Tint& tint, const List& list);
    void recolor(const Tint& tint, scene::Item& item);

    std::map<Key, List> known_;
};

}  // namespace psrender::plan
