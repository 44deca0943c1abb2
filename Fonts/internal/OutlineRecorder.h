#pragma once

#include "Fonts/GlyphSink.h"

#include <array>
#include <vector>

namespace Fonts {

/// Keeps an outline while a font engine delivers it, so that a sink is called outside the
/// engine, whose C functions let no exception through.
class OutlineRecorder {
public:
    /// `unit`: 1/1000 em to one unit of the engine.
    explicit OutlineRecorder(float unit) : unit_(unit) {}

    void moveTo(float x, float y) { steps_.push_back({Kind::move, {x, y}}); }
    void lineTo(float x, float y) { steps_.push_back({Kind::line, {x, y}}); }
    void curveTo(float x1, float y1, float x2, float y2, float x3, float y3) {
        steps_.push_back({Kind::curve, {x1, y1, x2, y2, x3, y3}});
    }
    void close() { steps_.push_back({Kind::close, {}}); }
    [[nodiscard]] bool empty() const { return steps_.empty(); }

    void replay(GlyphSink& sink) const;

private:
    enum class Kind { move, line, curve, close };
    struct Step {
        Kind kind;
        std::array<float, 6> points;
    };

    float unit_;
    std::vector<Step> steps_;
};

}  // namespace Fonts
