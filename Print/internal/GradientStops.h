#pragma once

#include "Drawing/GradientBrush.h"
#include "Print/internal/Ink.h"

#include <vector>

namespace Drawing::Print {

/// The colours along a gradient as a function from 0 to 1 tells them: pieces that run from one
/// colour to another, all in one colour space.
class GradientStops {
public:
    /// From the stops of `brush`, with its opacity. Positions are brought into ascending order from
    /// 0 to 1, stops of different colour spaces to RGB.
    GradientStops(const GradientBrush& brush, const ColorConverter* converter);

    /// Turns the function round: what was at 0 is at 1.
    void reverse();
    /// "[colours] [bounds]" or, for other spaces than RGB, "[colours] components [bounds]", as the
    /// procedures of the prolog take them.
    void write(bool withCount, TextBuffer& out) const;
    [[nodiscard]] bool isRGB() const {
        return stops_.front().ink.space == ColorSpaceType::rgb && stops_.front().ink.spot.empty();
    }
    [[nodiscard]] const Ink& last() const { return stops_.back().ink; }

private:
    struct Stop {
        double position = 0;
        Ink ink;
    };

    void unify();
    void cover();
    [[nodiscard]] bool hasSteps() const;
    static void writeColor(const Ink& ink, TextBuffer& out);

    std::vector<Stop> stops_;
};

}  // namespace Drawing::Print
