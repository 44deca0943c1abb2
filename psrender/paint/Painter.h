#pragma once

#include "Drawing/IOutputContext.h"
#include "psrender/paint/Brushes.h"
#include "psrender/scene/DisplayList.h"

/// Turns planned pages into calls of the drawing interface. Nothing is decided here any more.
namespace psrender::paint {

/// Draws the pages of one document.
class Painter {
public:
    /// `context` must outlive the painter.
    explicit Painter(Drawing::IOutputContext& context) : context_(context), brushes_(context) {}

    /// Draws `page`, which must be planned.
    void paintPage(const scene::Page& page);

private:
    Drawing::IOutputContext& context_;
    Brushes brushes_;
};

}  // namespace psrender::paint
