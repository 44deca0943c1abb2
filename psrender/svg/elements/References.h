#pragma once

#include "psrender/svg/elements/PageItems.h"
#include "psrender/svg/elements/SymbolStore.h"

#include <cstddef>
#include <functional>
#include <pugixml.hpp>
#include <vector>

namespace psrender::svg {

class XmlTree;

/// What is drawn through references: never within itself, once for each appearance, and within
/// bounds, as a small file can ask for endless work by them.
class References {
public:
    /// Both must outlive the references.
    References(const XmlTree& tree, PageItems& items) : tree_(tree), items_(items) {}

    /// Whether `target` is being drawn now, so that drawing it again would never end.
    [[nodiscard]] bool isWithin(pugi::xml_node target) const;
    /// Calls `draw`, in which `target` is being drawn.
    template <class Draw>
    void drawWithin(pugi::xml_node target, Draw draw) {
        targets_.push_back(target);
        draw();
        targets_.pop_back();
    }

    /// What `draw` draws of `target` at the origin, which it does unless that is known already.
    const Symbol& symbolOf(pugi::xml_node target, const Appearance& appearance,
                           const std::function<void()>& draw);

    /// Takes what reading the attributes of `element` costs from what references may cost. Throws
    /// `InputError` when nothing is left.
    void spendOn(pugi::xml_node element);
    /// The same for `effort`, counted in elements of ordinary size.
    void spend(std::size_t effort, pugi::xml_node element);

private:
    const XmlTree& tree_;
    PageItems& items_;
    SymbolStore symbols_;
    std::vector<pugi::xml_node> targets_;  ///< that are being drawn
    std::size_t spent_ = 0;
};

}  // namespace psrender::svg
