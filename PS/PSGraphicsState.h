#pragma once

#include "Core/Object.h"
#include "Core/SmartPtr.h"
#include "Drawing/Brush.h"
#include "Drawing/Font.h"
#include "Drawing/Matrix.h"
#include "Drawing/Path.h"
#include "Drawing/SizeF.h"
#include "Drawing/Stroke.h"
#include "PS/Export.h"

#include <cstdint>

namespace Drawing::PS {

/// What the setters of a document stored last. There is one per context, not a stack: every
/// drawing call writes what it needs between a "q" and a "Q" of its own.
class PS_API PSGraphicsState : public Core::Object {
public:
    static constexpr std::int32_t kEvenOdd = 0;
    static constexpr std::int32_t kNonZero = 1;

    /// The state of a fresh page: identity, white fill, a black line 1 wide, no font.
    explicit PSGraphicsState(const SizeF& size);
    ~PSGraphicsState() override;

    [[nodiscard]] bool hasStroke() const { return !stroke.isNull(); }
    [[nodiscard]] bool hasFill() const { return !fill.isNull(); }
    /// Makes the page's own rectangle the clip.
    void resetClip();

    Matrix transform;  ///< on a page with its flip to y upwards folded in
    Core::Vector<Core::SmartPtr<Path>> clipPaths;
    Core::SmartPtr<Stroke> stroke;
    Core::SmartPtr<Brush> fill;
    Core::SmartPtr<Font> font;
    std::int32_t newPathFlag = 0;  ///< 1 in a nested context, which starts without a page
    std::int32_t fillRule = kNonZero;
    SizeF pageSize;  ///< points
};

}  // namespace Drawing::PS
