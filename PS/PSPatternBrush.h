#pragma once

#include "PS/Export.h"
#include "PS/PSDocumentFragment.h"

namespace Drawing::PS {

/// The tile of a pattern brush, recorded like a fragment. Its name is "pattern_{number}"; the
/// fragment number that its base takes stays unused.
class PS_API PSPatternBrush : public PSDocumentFragment {
public:
    /// `width` and `height` in points: the tile's size and its steps.
    PSPatternBrush(float width, float height);
    ~PSPatternBrush() override;
};

}  // namespace Drawing::PS
