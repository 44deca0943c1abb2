#pragma once

#include "psrender/scene/DisplayList.h"
#include "psrender/svg/css/StyleResolver.h"
#include "psrender/svg/elements/Canvas.h"
#include "psrender/svg/elements/ClipReader.h"
#include "psrender/svg/elements/ElementWalker.h"
#include "psrender/svg/elements/FilterReader.h"
#include "psrender/svg/elements/ImageReader.h"
#include "psrender/svg/elements/MarkerReader.h"
#include "psrender/svg/elements/MaskReader.h"
#include "psrender/svg/elements/PatternReader.h"
#include "psrender/svg/elements/References.h"
#include "psrender/svg/elements/ShapeDrawer.h"
#include "psrender/svg/elements/TextReader.h"
#include "psrender/svg/elements/UseReader.h"
#include "psrender/svg/image/ImageLinks.h"
#include "psrender/svg/paint/PaintResolver.h"
#include "psrender/svg/paint/ShapePaints.h"
#include "psrender/svg/path/ShapeReader.h"
#include "psrender/svg/values/ReadingWishes.h"
#include "psrender/svg/xml/ElementKind.h"
#include "psrender/svg/xml/XmlTree.h"

#include <optional>
#include <string>
#include <vector>

namespace psrender::svg {

/// Walks a document and lays what it shows on a page: the styles on the way down, groups, nested
/// viewports and choices. Every other kind of element has a reader of its own.
class SceneBuilder : private ElementWalker {
public:
    /// Tree and warnings must outlive the builder.
    SceneBuilder(const XmlTree& tree, const ImageAccess& images, Warnings& warnings,
                 const ReadingLimits& limits, const ReadingWishes& wishes = {},
                 std::size_t depth = 0);

    /// To be called once. Throws `InputError`.
    scene::Page build();

private:
    void draw(pugi::xml_node element, const Surroundings& around, const scene::Rect* area) override;
    void drawChildren(pugi::xml_node element, const Surroundings& inside) override;

    scene::Page readWithin(const std::string& text);
    void drawAlone(pugi::xml_node shown, const Surroundings& around, const scene::Rect* area);
    void descend(std::vector<pugi::xml_node>& ancestors, pugi::xml_node shown,
                 const Surroundings& around, const scene::Rect* area);
    static Surroundings enter(const ComputedStyle& style, const Surroundings& around);
    std::optional<Surroundings> openWithin(pugi::xml_node element, const scene::Rect& area,
                                           const Surroundings& inside);
    void drawBlended(const Surroundings& inside, const std::function<void()>& draw);
    void drawContent(ElementKind kind, pugi::xml_node element, const Surroundings& inside,
                     const scene::Rect* area);
    void drawChoice(pugi::xml_node element, const Surroundings& inside);
    void drawViewport(pugi::xml_node element, const scene::Rect& area, const Surroundings& inside);
    void checkEffort(pugi::xml_node element, const Surroundings& around);

    const XmlTree& tree_;
    const std::string shown_;  ///< the id of the only element that is shown
    ImageAccess access_;
    ReadingLimits limits_;
    std::size_t depth_;  ///< of drawings within drawings
    Warnings& warnings_;
    StyleResolver styles_;
    PaintResolver paints_;
    ShapePaints shapePaints_;
    ShapeReader outlines_;
    ImageLinks links_;
    Canvas canvas_;
    References references_;

    UseReader uses_;
    ClipReader clips_;
    MaskReader masks_;
    FilterReader filters_;
    MarkerReader markers_;
    PatternReader patterns_;
    ImageReader images_;
    TextReader texts_;
    ShapeDrawer shapes_;
};

}  // namespace psrender::svg
