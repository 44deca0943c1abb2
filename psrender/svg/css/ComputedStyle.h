#pragma once

#include "psrender/scene/DisplayList.h"
#include "psrender/scene/Geometry.h"
#include "psrender/svg/css/TextStyle.h"
#include "psrender/svg/values/Color.h"
#include "psrender/svg/values/Length.h"
#include "psrender/svg/values/Paint.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace psrender::svg {

/// Properties that change the picture and that the reader leaves out, as bits of a set.
using FeatureSet = std::uint16_t;
namespace feature {
constexpr FeatureSet kFixedStrokeWidth = 8;
}  // namespace feature

/// Shared between an element and what inherits it; never null entries. Null means solid.
using DashList = std::shared_ptr<const std::vector<Length>>;

/// What a shape or text is painted with, one over the other.
enum class PaintLayer : std::uint8_t { fill, stroke, markers };
/// All of them, the lowest first.
using PaintOrder = std::array<PaintLayer, 3>;

/// What children take over from their parent.
struct InheritedStyle {
    PaintValue fill{{}, false, {PlainPaint::Kind::color, {}}};
    PaintValue stroke;
    Rgba color;
    double fillOpacity = 1;
    double strokeOpacity = 1;
    scene::FillRule fillRule = scene::FillRule::nonZero;
    scene::FillRule clipRule = scene::FillRule::nonZero;  ///< instead within a clip path
    scene::Cap cap = scene::Cap::butt;
    scene::Join join = scene::Join::miter;
    double miterLimit = 4;
    Length strokeWidth{1};
    DashList dashes;
    Length dashOffset;
    double fontSize = 16;
    TextStyle text;
    PaintOrder paintOrder{PaintLayer::fill, PaintLayer::stroke, PaintLayer::markers};
    bool isVisible = true;
    bool hasSmoothImages = true;
    /// Ids of markers, empty for none.
    std::string_view markerStart;
    std::string_view markerMid;
    std::string_view markerEnd;

    friend bool operator==(const InheritedStyle&, const InheritedStyle&) = default;
};

/// What each element has for itself.
struct OwnStyle {
    double opacity = 1;
    std::string_view clipPath;  ///< its id, empty for none
    std::string_view mask;      ///< its id, empty for none
    bool isAlphaMask = false;   ///< of a mask: the colours of its content do not matter
    std::string_view filter;    ///< the operations, empty for none
    scene::BlendMode blendMode = scene::BlendMode::normal;
    bool isIsolated = false;
    bool isDisplayed = true;
    bool overflows = false;  ///< what is outside of its viewport is shown
    scene::Affine transform;
    Length originX;  ///< the point that `transform` leaves where it is
    Length originY;
    PlainPaint stopColor{PlainPaint::Kind::color, {}};
    double stopOpacity = 1;
    double baselineShift = 0;  ///< user units, upwards

    friend bool operator==(const OwnStyle&, const OwnStyle&) = default;
};

/// All properties of one element after cascade and inheritance. Paint references are views
/// into the document.
struct ComputedStyle : InheritedStyle, OwnStyle {
    FeatureSet leftOut = 0;

    ComputedStyle() = default;
    /// What a child of an element with the style `parent` begins with.
    static ComputedStyle childOf(const ComputedStyle& parent);

    friend bool operator==(const ComputedStyle&, const ComputedStyle&) = default;
};

}  // namespace psrender::svg
