#pragma once

#include "Drawing/Brush.h"
#include "Drawing/Stroke.h"
#include "Print/PrintDocument.h"
#include "psrender/scene/DisplayList.h"

#include <map>
#include <memory>

namespace psrender::paint {

/// The brushes, strokes, tiles and fragments of a page.
class PageResources {
public:
    /// `document` must outlive the resources.
    explicit PageResources(Drawing::Print::PrintDocument& document) : document_(document) {}

    /// Null for no paint. A paint server lies as it tells in the space of the outline, which is the
    /// user space when it is drawn.
    Core::SmartPtr<Drawing::Brush> brushOf(const scene::Paint& paint);
    /// Null for no paint.
    Core::SmartPtr<Drawing::Stroke> strokeOf(const scene::Paint& paint,
                                             const scene::StrokeStyle& style);
    /// The fragment that shows a symbol.
    Core::SmartPtr<Drawing::IOutputContext> fragmentOf(
        const std::shared_ptr<const scene::ItemList>& symbol);

private:
    using ContextPtr = Core::SmartPtr<Drawing::IOutputContext>;
    /// Kept with what they show, as another list could get its address.
    using Contexts = std::map<std::shared_ptr<const scene::ItemList>, ContextPtr>;

    ContextPtr tileOf(const scene::Pattern& pattern);

    Drawing::Print::PrintDocument& document_;
    Contexts tiles_;
    Contexts fragments_;
};

}  // namespace psrender::paint
