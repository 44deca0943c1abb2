#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/Stage.h"
#include "psrender/plan/blend/BlendLayer.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace psrender::plan {

/// Makes translucent things opaque: each is shown in the colour that it has over what lies
/// beneath, and in pieces where that is of several colours. A translucent group is a page of its
/// own first, on clear ground. Behind it groups only clip.
///
/// Translucent pictures are blended with what lies beneath them pixel by pixel.
class BlendStage : public Stage {
public:
    /// All must outlive the stage.
    BlendStage(Budget& budget, Warnings& warnings, Sink& next);

    /// Passes the page on, after its last item: what is hidden by then is left out.
    void finish() override;

protected:
    void on(scene::Shape shape) override { takePainted(std::move(shape)); }
    void on(scene::Text text) override { takePainted(std::move(text)); }
    void on(scene::Picture picture) override;
    void on(scene::Placement placement) override;
    void on(scene::BeginGroup group) override;
    void on(scene::EndGroup end) override;

private:
    using ChainPtr = BlendArea::ChainPtr;

    /// The page, or a group that is not complete yet.
    struct Level {
        BlendLayer layer;
        double opacity = 1;
        std::size_t beneath = 0;  ///< areas of the level around it when the group began
    };
    /// What a group was, and the clips around it.
    struct Group {
        bool isClip = false;
        ChainPtr around;
    };
    /// An opaque item or, without one, an area, and what stands for it on the page.
    struct Entry {
        std::optional<scene::Item> item;
        ChainPtr clips;
        std::size_t firstArea = 0;
        std::size_t countAreas = 0;
    };

    [[nodiscard]] bool isPage() const { return levels_.size() == 1; }
    void endLevel();
    void takePainted(scene::Item item);
    /// A picture under clips that may be translucent, over the lowest `beneath` areas.
    void takePicture(scene::Picture picture, ChainPtr clips, std::size_t beneath);
    /// Places it in pieces that are pictures beneath even tints; false if they would not be.
    bool placeInPieces(const scene::Picture& picture, std::size_t beneath);
    void flatten(scene::Picture& picture, std::size_t beneath);
    void show(BlendLayer::Mix& mix);
    /// The areas of items that are opaque, each under its own clips as well; how many there are.
    std::size_t addAreasOf(const std::vector<scene::Item>& items);
    /// Puts an area on top, as it looks over the lowest `beneath` areas; tells which of these it
    /// hides.
    std::vector<std::size_t> place(const BlendArea& area, std::size_t beneath);
    void hide(const std::vector<std::size_t>& areas);
    void remember(std::optional<scene::Item> item, std::size_t countAreas);
    [[nodiscard]] bool isHidden(const Entry& entry) const;

    Budget& budget_;
    Warnings& warnings_;
    ClipChains chains_;
    ChainPtr clips_;  ///< that hold here
    std::vector<Group> groups_;
    std::vector<Level> levels_;   ///< never empty
    std::vector<Entry> entries_;  ///< of the page
};

}  // namespace psrender::plan
