#pragma once

#include "psrender/plan/Budget.h"
#include "psrender/plan/Planner.h"
#include "psrender/plan/Stage.h"
#include "psrender/plan/effect/PixelMaker.h"

#include <memory>
#include <optional>
#include <vector>

namespace psrender::plan {

/// Plans one page, its tiles and symbols.
class PagePlanner {
public:
    /// Both must outlive the planner. `hasPicturesOnPatterns` makes pictures of what is translucent
    /// and lies over patterns.
    PagePlanner(const PlanOptions& options, Warnings& warnings, bool hasPicturesOnPatterns = false,
                Budget budget = Budget())
        : options_(options),
          warnings_(warnings),
          hasPicturesOnPatterns_(hasPicturesOnPatterns),
          budget_(budget) {}

    /// Items with what they look like on white paper, on a page of this size, if it is one.
    std::vector<scene::Item> plan(scene::ItemList list,
                                  std::optional<scene::Rect> page = std::nullopt);

    /// What it cost, and what could not be afforded.
    [[nodiscard]] const Budget& budget() const { return budget_; }

private:
    std::unique_ptr<Stage> effectStage(const scene::ItemList& list, std::optional<scene::Rect> page,
                                       Sink& next);
    std::unique_ptr<Stage> opaqueStage(const scene::ItemList& list, Sink& next);

    const PlanOptions& options_;
    Warnings& warnings_;
    bool hasPicturesOnPatterns_;
    Budget budget_;
};

}  // namespace psrender::plan
