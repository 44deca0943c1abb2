#pragma once

#include "psrender/plan/Stage.h"
#include "psrender/plan/blend/Recoloring.h"

#include <vector>

namespace psrender::plan {

/// Makes translucent things opaque, as they look over white paper. Within a group of opaque items
/// that is exact: the topmost one is seen, over white.
class WhiteStage : public Stage {
public:
    using Stage::Stage;

protected:
    void on(scene::Shape shape) override { show(std::move(shape)); }
    void on(scene::Text text) override { show(std::move(text)); }
    void on(scene::Picture picture) override;
    void on(scene::BeginGroup group) override;
    void on(scene::EndGroup end) override;

private:
    template <class Painted>
    void show(Painted item) {
        item.fill = recoloring_.overWhite(item.fill, opacity());
        item.stroke = recoloring_.overWhite(item.stroke, opacity());
        if (isPainted(item.fill) || isPainted(item.stroke))
            pass(std::move(item));
    }
    [[nodiscard]] double opacity() const { return groups_.empty() ? 1 : groups_.back().opacity; }

    struct Group {
        double opacity = 1;   ///< of all groups around
        bool isClip = false;  ///< whether it goes on
    };

    std::vector<Group> groups_;
    Recoloring recoloring_;
};

}  // namespace psrender::plan
