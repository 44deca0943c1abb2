#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/Sink.h"

namespace psrender::plan {

/// Keeps as text what the back end shows as text, and makes shapes of the rest. Text stays text
/// when it is filled and not stroked, in one colour, and laid out as its font does by itself, in a
/// font that a document may carry.
class TextStage : public Sink {
public:
    /// Both must outlive the stage.
    TextStage(Warnings& warnings, Sink& next) : warnings_(warnings), next_(next) {}

    void take(scene::Item item) override;

private:
    void takeText(scene::Text text);

    Warnings& warnings_;
    Sink& next_;
};

}  // namespace psrender::plan
