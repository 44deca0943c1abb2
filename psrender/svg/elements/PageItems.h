#pragma once

#include "psrender/scene/DisplayList.h"
#include "psrender/svg/values/ReadingLimits.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace psrender::svg {

/// Collects the items of a page and keeps its groups no more than necessary: an empty group
/// vanishes, and one that holds a single paint or picture becomes part of it.
class PageItems {
public:
    using Mark = std::size_t;

    /// How much there is to draw; what is shared is counted each time.
    struct Size {
        std::size_t shapes = 0;
        std::size_t points = 0;

        friend Size operator+(Size a, Size b) { return {a.shapes + b.shapes, a.points + b.points}; }
        friend Size operator-(Size a, Size b) { return {a.shapes - b.shapes, a.points - b.points}; }
    };

    explicit PageItems(const ReadingLimits& limits) : limits_(limits) {}

    /// False if the page would become larger than the limits.
    [[nodiscard]] bool add(scene::Shape shape);
    /// The same for a picture.
    [[nodiscard]] bool add(scene::Picture picture);
    [[nodiscard]] bool add(scene::Text text);
    /// The same for a placement of items of this size.
    [[nodiscard]] bool add(scene::Placement placement, Size size);

    [[nodiscard]] Size size() const { return size_; }
    [[nodiscard]] const ReadingLimits& limits() const { return limits_; }

    Mark beginGroup(double opacity, std::optional<scene::Clip> clip = std::nullopt);
    /// Gives the group that began at `begin` effects. One with a filter may show something though
    /// nothing is in it.
    void setEffects(Mark begin, scene::Effects effects);
    void endGroup(Mark begin);
    /// Takes back what was added since `begin`.
    void dropSince(Mark begin) { items_.resize(begin + 1, scene::EndGroup{}); }

    /// While one lives, what paints nothing is to be added as well, as it counts for a box.
    class BoxScope {
    public:
        explicit BoxScope(PageItems& items) : items_(items) { ++items_.boxScopes_; }
        BoxScope(const BoxScope&) = delete;
        BoxScope& operator=(const BoxScope&) = delete;
        ~BoxScope() { --items_.boxScopes_; }

    private:
        PageItems& items_;
    };
    [[nodiscard]] std::optional<BoxScope> boxScope(bool isWanted) {
        return isWanted ? std::optional<BoxScope>(std::in_place, *this) : std::nullopt;
    }
    [[nodiscard]] bool countsUnpainted() const { return boxScopes_ > 0; }

    /// What `draw` adds becomes a group.
    template <class Draw>
    void group(double opacity, std::optional<scene::Clip> clip, Draw draw) {
        const Mark begin = beginGroup(opacity, std::move(clip));
        draw();
        endGroup(begin);
    }
    /// The box around everything since `begin` without its strokes, mapped by `fromPage`; nothing
    /// if there are no shapes and pictures.
    [[nodiscard]] std::optional<scene::Rect> boxSince(Mark begin,
                                                      const scene::Affine& fromPage) const;
    /// The box around everything with its strokes.
    [[nodiscard]] std::optional<scene::Rect> inkBox() const;
    /// Moves the clip of the group that began at `begin`.
    void moveClip(Mark begin, const scene::Affine& toPage);

    std::vector<scene::Item> takeItems() { return std::exchange(items_, {}); }

    /// What `draw` adds, as a list of its own. It counts towards the limits like the rest.
    template <class Draw>
    std::shared_ptr<const scene::ItemList> record(Draw draw) {
        std::vector<scene::Item> around = takeItems();
        draw();
        auto list = std::make_shared<scene::ItemList>();
        list->items = std::exchange(items_, std::move(around));
        return list;
    }

private:
    [[nodiscard]] bool grow(Size size);

    ReadingLimits limits_;
    std::vector<scene::Item> items_;
    Size size_;
    std::size_t boxScopes_ = 0;
};

}  // namespace psrender::svg
