#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/BlendLayer.h"
#include "psrender/plan/Sink.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace psrender::plan {

/// Whether anything in `list` is translucent.
bool hasTranslucency(const scene::ItemList& list);

/// Makes translucent things opaque: each is shown in the colour that it has over what lies
/// beneath, and in pieces where that is of several colours. A translucent group is a page of its
/// own first, on clear ground.
///
/// Pictures are blended with what lies beneath them pixel by pixel. Patterns and pictures are not
/// cut: beneath something translucent they count as areas of their average colour, and translucent
/// patterns go on as they are.
class BlendStage : public Sink {
public:
    /// `warnings` and `next` must outlive the stage.
    BlendStage(Warnings& warnings, Sink& next) : warnings_(warnings), next_(next) {
        levels_.push_back({BlendLayer(Tint()), 1, 0});
    }

    void take(scene::Item item) override;
    /// Passes the page on, after its last item: what is hidden by then is left out.
    void finish();

private:
    /// The page, or a group that is not complete yet.
    struct Level {
        BlendLayer layer;
        double opacity;
        std::size_t beneath;  ///< areas of the level around it when the group began
    };

    /// An opaque item or, without one, an area, and what stands for it on the page.
    struct Entry {
        std::optional<scene::Item> item;
        std::size_t firstArea = 0;
        std::size_t countAreas = 0;
    };

    [[nodiscard]] bool isPage() const { return levels_.size() == 1; }
    void begin(double opacity);
    void end();
    void takePainted(scene::Item item);
    /// Makes a picture opaque, over the lowest `beneath` areas of the page.
    void flatten(scene::Picture& picture, std::size_t beneath);
    void takePlacement(const scene::Placement& placement);
    /// Puts an area on top, as it looks over the lowest `beneath` areas; tells which of these it
    /// hides.
    std::vector<std::size_t> place(const BlendArea& area, std::size_t beneath);
    void hide(const std::vector<std::size_t>& areas);
    void add(BlendArea area);
    void remember(std::optional<scene::Item> item, std::size_t countAreas);
    [[nodiscard]] bool isHidden(const Entry& entry) const;
    void show(const BlendArea& area);

    Warnings& warnings_;
    Sink& next_;
    std::vector<Level> levels_;   ///< never empty
    std::vector<Entry> entries_;  ///< of the page
    BlendBudget budget_;
};

}  // namespace psrender::plan
