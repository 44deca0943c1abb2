#pragma once

#include "psrender/scene/DisplayList.h"

namespace psrender::plan {

/// Takes the items of a page one after the other, from the lowest to the topmost. The planner is
/// a row of sinks, each of which takes something off the next that the back end cannot say.
class Sink {
public:
    Sink() = default;
    Sink(const Sink&) = delete;
    Sink& operator=(const Sink&) = delete;
    virtual ~Sink() = default;

    virtual void take(scene::Item item) = 0;
};

}  // namespace psrender::plan
