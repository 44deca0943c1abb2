#pragma once

#include "psrender/scene/DisplayList.h"
#include "psrender/svg/ComputedStyle.h"
#include "psrender/svg/ElementKind.h"
#include "psrender/svg/ImageLinks.h"
#include "psrender/svg/MarkerVertices.h"
#include "psrender/svg/PageItems.h"
#include "psrender/svg/PaintResolver.h"
#include "psrender/svg/ShapeReader.h"
#include "psrender/svg/StyleResolver.h"
#include "psrender/svg/SymbolStore.h"
#include "psrender/svg/Viewport.h"
#include "psrender/svg/XmlTree.h"
#include "psrender/svg/text/TextLayout.h"
#include "psrender/svg/text/TextRuns.h"

#include <functional>
#include <vector>

namespace psrender::svg {

/// Walks a document and lays what it shows on a page.
class SceneBuilder {
public:
    /// Tree and warnings must outlive the builder.
    SceneBuilder(const XmlTree& tree, const ImageAccess& images, Warnings& warnings,
                 const ReadingLimits& limits)
        : tree_(tree),
          warnings_(warnings),
          styles_(tree, warnings),
          paints_(tree, styles_, warnings,
                  [this](pugi::xml_node pattern, const PaintPlace& place) {
                      return paintOfPattern(pattern, place);
                  }),
          shapes_(warnings),
          images_(images, warnings),
          items_(limits),
          fonts_(warnings) {}

    /// To be called once. Throws `InputError`.
    scene::Page build();

private:
    /// What an element finds around it.
    struct Surroundings {
        const ComputedStyle& style;
        scene::Affine toPage;
        Measures measures;
        std::size_t depth = 0;
        bool isReferred = false;  ///< drawn through a reference
        bool isClip = false;      ///< only what is covered counts
    };

    /// `area` is where a reference wants an element with a viewport of its own.
    void draw(pugi::xml_node element, const Surroundings& around,
              const scene::Rect* area = nullptr);
    void drawContent(ElementKind kind, pugi::xml_node element, const Surroundings& inside,
                     const scene::Rect* area);
    void drawChildren(pugi::xml_node element, const Surroundings& inside);
    void drawChoice(pugi::xml_node element, const Surroundings& inside);
    void drawViewport(pugi::xml_node element, const scene::Rect& area, const Surroundings& inside);
    void checkEffort(pugi::xml_node element, const Surroundings& around);
    void addEffort(std::size_t effort, pugi::xml_node element);
    [[noreturn]] void failOfSize(pugi::xml_node element) const;

    /// What `draw` draws, as a group within the clip path of the style.
    void drawWithinClip(const Surroundings& inside, const std::function<void()>& draw);
    [[nodiscard]] pugi::xml_node findClipPath(const ComputedStyle& style) const;
    scene::Clip clipFor(pugi::xml_node clipPath, const Surroundings& inside);
    void drawClipArea(pugi::xml_node clipPath, const Surroundings& inside);

    void drawUse(pugi::xml_node use, const Surroundings& inside);
    void drawTarget(pugi::xml_node use, pugi::xml_node target, const Surroundings& inside);
    const Symbol& symbolOfTarget(pugi::xml_node target, const Surroundings& inside,
                                 const std::optional<scene::Rect>& area);
    /// What `draw` draws at the origin, which it does unless that is known already.
    const Symbol& symbolOf(pugi::xml_node target, const Appearance& appearance,
                           const std::function<void()>& draw);
    void place(pugi::xml_node element, const Symbol& symbol, const scene::Affine& toPage);
    [[nodiscard]] pugi::xml_node findTarget(pugi::xml_node use);
    [[nodiscard]] scene::Rect nestedArea(pugi::xml_node svg, const Measures& measures) const;
    [[nodiscard]] scene::Rect targetArea(pugi::xml_node use, pugi::xml_node target,
                                         const Measures& measures) const;

    void drawShape(ElementKind kind, pugi::xml_node element, const Surroundings& inside);
    [[nodiscard]] scene::Shape paintedShape(const SharedOutline& outline,
                                            const Surroundings& inside);
    /// The paints of a shape that has no outline yet.
    [[nodiscard]] scene::Shape painted(const PaintPlace& place, const Surroundings& inside);
    void addShape(scene::Shape shape, pugi::xml_node element);
    [[nodiscard]] static bool hasMarkers(ElementKind kind, const ComputedStyle& style);
    void drawMarkers(pugi::xml_node element, const scene::Outline& outline,
                     const Surroundings& inside);
    void drawMarker(pugi::xml_node marker, const MarkerVertex& vertex, bool isStart,
                    const Surroundings& inside);
    const Symbol& symbolOfMarker(pugi::xml_node marker, const Surroundings& inside);
    std::optional<scene::Paint> paintOfPattern(pugi::xml_node pattern, const PaintPlace& place);
    const Symbol& symbolOfPattern(pugi::xml_node holder, const Measures& measures,
                                  std::size_t depth);
    const image::UprightImage* findImage(std::string_view address, pugi::xml_node element);
    void drawImage(pugi::xml_node element, const Surroundings& inside);
    void drawText(pugi::xml_node element, const Surroundings& inside);
    void layOut(const TextChunk& chunk, const TextContent& content, const Surroundings& inside,
                TextLayout& layout);
    void drawRun(const LaidRun& run, const TextSpan& span, const PaintPlace& place,
                 const Surroundings& inside);
    void drawDecorations(const TextContent& content, const TextLayout& layout, DecorationSet lines,
                         const PaintPlace& place, const Surroundings& inside);
    [[nodiscard]] bool canBeDrawn(const scene::Affine& toPage);
    void warnOfLeftOut(const ComputedStyle& style, ElementKind kind);

    const XmlTree& tree_;
    Warnings& warnings_;
    StyleResolver styles_;
    PaintResolver paints_;
    ShapeReader shapes_;
    ImageLinks images_;
    PageItems items_;
    SymbolStore symbols_;
    FontChooser fonts_;
    Shaper shaper_;
    std::vector<pugi::xml_node> targets_;  ///< of the references that are being drawn
    std::size_t referredEffort_ = 0;
};

}  // namespace psrender::svg
