#include "psrender/scene/UnseenText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <unordered_map>
#include <utility>

namespace psrender::scene {

namespace {

/// In points: a third of a dot of the finest printers, and ten times what interpreters need.
constexpr double kSmallestEm = 0.01;
constexpr double kLargestEm = 1e6;
constexpr double kFarthest = 1e9;

/// From the shortest to the longest that comes of a length, or of ems; of none at first.
struct Extent {
    double least = std::numeric_limits<double>::infinity();
    double most = 0;
};

/// Bounds of what a map does to a length in any direction, within a factor of 1.5.
Extent extentOf(const Affine& m) {
    const double most = std::hypot(std::hypot(m.a, m.b), std::hypot(m.c, m.d));
    return {most > 0 ? std::abs(m.determinant()) / most : 0, most};
}

/// What is no number is not within.
bool isSeen(const Extent& em) {
    return em.least >= kSmallestEm && em.most <= kLargestEm;
}

bool isNear(double value) {
    return std::abs(value) <= kFarthest;
}

/// Whether nothing of it stands where nobody could.
bool isPlaced(const TextRun& run) {
    return isNear(run.spacing) && std::ranges::all_of(run.glyphs, [](const PlacedGlyph& glyph) {
               return isNear(glyph.origin.x) && isNear(glyph.origin.y);
           });
}

/// Any size at all for a text that is seen at none.
Extent emOf(const Text& text) {
    if (!text.transform.isFinite() || !isPlaced(*text.run))
        return {0, kLargestEm};
    return {text.run->size, text.run->size};
}

class UnseenText {
public:
    explicit UnseenText(Warnings& warnings) : warnings_(warnings) {}

    /// `list` without its unseen text, if it has any where `map` places it.
    void drop(ItemList& list, const Affine& map) {
        std::erase_if(list.items, [&](const Item& item) {
            const auto* text = std::get_if<Text>(&item);
            return text != nullptr && !keeps(*text, map * text->transform);
        });
        for (Item& item : list.items)
            descend(item, map);
    }

private:
    bool keeps(const Text& text, const Affine& toPage) {
        const Extent map = extentOf(toPage);
        const Extent em = emOf(text);
        if (isNear(toPage.e) && isNear(toPage.f) &&
            isSeen({map.least * em.least, map.most * em.most}))
            return true;
        warnings_.add("text too small to be seen or beyond all bounds is left out (<text>)");
        return false;
    }

    void descend(Item& item, const Affine& map) {
        if (auto* placement = std::get_if<Placement>(&item))
            placement->symbol = withoutUnseen(placement->symbol, map * placement->transform);
        else if (auto* shape = std::get_if<Shape>(&item))
            for (Paint* paint : {&shape->fill, &shape->stroke})
                if (auto* pattern = std::get_if<std::shared_ptr<const Pattern>>(&paint->source))
                    *pattern = withoutUnseen(*pattern, map * shape->transform);
    }

    std::shared_ptr<const Pattern> withoutUnseen(const std::shared_ptr<const Pattern>& pattern,
                                                 const Affine& map) {
        auto content = withoutUnseen(pattern->content, map * pattern->transform);
        if (content == pattern->content)
            return pattern;
        auto result = std::make_shared<Pattern>(*pattern);
        result->content = std::move(content);
        return result;
    }

    /// The list itself, which others share, if all of its text is seen.
    std::shared_ptr<const ItemList> withoutUnseen(const std::shared_ptr<const ItemList>& list,
                                                  const Affine& map) {
        const Extent place = extentOf(map);
        const Extent ems = emsOf(*list);
        if (ems.most == 0 || isSeen({place.least * ems.least, place.most * ems.most}))
            return list;
        auto result = std::make_shared<ItemList>(*list);
        drop(*result, map);
        return result;
    }

    Extent emsOf(const ItemList& list) {
        if (const auto known = known_.find(&list); known != known_.end())
            return known->second;
        Extent all;
        const auto add = [&](const Affine& map, const Extent& ems) {
            const Extent place = extentOf(map);
            all.least = std::min(all.least, place.least * ems.least);
            all.most = std::max(all.most, place.most * ems.most);
        };
        for (const Item& item : list.items) {
            if (const auto* text = std::get_if<Text>(&item))
                add(text->transform, emOf(*text));
            else if (const auto* placement = std::get_if<Placement>(&item))
                add(placement->transform, emsOf(*placement->symbol));
            else if (const auto* shape = std::get_if<Shape>(&item))
                for (const Paint* paint : {&shape->fill, &shape->stroke})
                    if (const Pattern* pattern = paint->pattern())
                        add(shape->transform * pattern->transform, emsOf(*pattern->content));
        }
        return known_.emplace(&list, all).first->second;
    }

    Warnings& warnings_;
    std::unordered_map<const ItemList*, Extent> known_;
};

}  // namespace

void dropUnseenText(Page& page, Warnings& warnings) {
    UnseenText(warnings).drop(page, {});
}

}  // namespace psrender::scene
