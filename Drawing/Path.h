#pragma once

#include "Core/Object.h"
#include "Drawing/Export.h"
#include "Drawing/PathCommand.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Drawing {

/// What lies inside a path (PLRM 4.5.2).
enum class FillRule : std::int32_t { evenOdd = 0, nonZero = 1 };

/// Lines and curves in user space, in the order in which they are drawn.
class DRAWING_API Path : public Core::Object {
public:
    Path();
    ~Path() override;

    void moveTo(float x, float y);
    void lineTo(float x, float y);
    /// A cubic Bezier curve with the control points (x1, y1) and (x2, y2), ending at (x3, y3).
    void curveTo(float x1, float y1, float x2, float y2, float x3, float y3);
    void close();
    /// Appends a step as it is.
    void add(const PathCommand& command);
    /// Makes room for `count` steps in all.
    void reserve(std::size_t count);

    /// What is inside when the path is filled or clips: the non-zero rule at first. Back ends that
    /// have one rule only take no notice.
    void setFillRule(FillRule rule) { fillRule_ = rule; }
    [[nodiscard]] FillRule getFillRule() const { return fillRule_; }

    [[nodiscard]] std::uint64_t getCommandCount() const { return commands_.size(); }
    /// The step at `index`, which must be below the count.
    [[nodiscard]] const PathCommand& getCommandAt(std::uint64_t index) const {
        return commands_[index];
    }

private:
    std::vector<PathCommand> commands_;
    FillRule fillRule_ = FillRule::nonZero;
};

}  // namespace Drawing
