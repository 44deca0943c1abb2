#pragma once

#include "Print/PrintDocument.h"
#include "psrender/scene/DisplayList.h"

/// Turns planned pages into calls of the drawing interface. Nothing is decided here any more.
namespace psrender::paint {

/// Draws the pages of one document. Nothing of a page is kept beyond it.
class Painter {
public:
    /// `document` must outlive the painter.
    explicit Painter(Drawing::Print::PrintDocument& document) : document_(document) {}

    /// Draws `page`, which must be planned.
    void paintPage(const scene::Page& page);

private:
    Drawing::Print::PrintDocument& document_;
};

}  // namespace psrender::paint
