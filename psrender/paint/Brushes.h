#pragma once

#include "Drawing/Brush.h"
#include "Drawing/IOutputContext.h"
#include "Drawing/Stroke.h"
#include "psrender/scene/DisplayList.h"

#include <map>
#include <memory>

namespace psrender::paint {

/// Makes the brushes and strokes of one document.
class Brushes {
public:
    /// `context` must outlive the brushes.
    explicit Brushes(Drawing::IOutputContext& context) : context_(context) {}

    /// Null for no paint. A gradient or pattern lies as `paint` tells in the space of the outline,
    /// which is the user space when it is drawn.
    Core::SmartPtr<Drawing::Brush> brushOf(const scene::Paint& paint);
    /// Null for no paint.
    Core::SmartPtr<Drawing::Stroke> strokeOf(const scene::Paint& paint,
                                             const scene::StrokeStyle& style);

private:
    using Tile = std::shared_ptr<const scene::ItemList>;

    Core::SmartPtr<Drawing::IOutputContext> contextOf(const scene::Pattern& pattern);

    Drawing::IOutputContext& context_;
    /// Tiles that were drawn already. They are kept, as another could get their address.
    std::map<Tile, Core::SmartPtr<Drawing::IOutputContext>> tiles_;
};

}  // namespace psrender::paint
