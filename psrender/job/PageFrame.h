#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/job/PaperSize.h"
#include "psrender/scene/DisplayList.h"

#include <optional>

namespace psrender {

/// Points on each side of a page.
struct Margins {
    double top = 0;
    double right = 0;
    double bottom = 0;
    double left = 0;
};

/// How a drawing comes to lie on its page.
struct PageFrame {
    std::optional<PaperSize> paper;    ///< else each page is as large as its drawing
    bool landscape = false;            ///< turns the paper
    bool fit = false;                  ///< scales the drawing to the paper less the margin
    Margins margins;                   ///< without paper the page grows by them
    std::optional<double> pageWidth;   ///< points of the page, in place of a paper's;
    std::optional<double> pageHeight;  ///< the drawing's own where one of them is missing
    std::optional<double> left;        ///< points from the edges of the page to the drawing,
    std::optional<double> top;         ///< which is in the middle where nothing is said
    double scaleX = 1;                 ///< of the drawing, before all else
    double scaleY = 1;
    std::optional<double> width;   ///< points: the drawing is scaled to it,
    std::optional<double> height;  ///< and in proportion where one of the two is given
    bool keepProportions = false;  ///< where both are given: the largest that fits in them
    std::optional<scene::Color> background;  ///< of the whole page
};

/// The size limits of a page in points: what interpreters and PDF readers take.
inline constexpr double kSmallestPage = 1;
inline constexpr double kLargestPage = 14400;

/// Lays a drawing on its page: in the middle, in its own size or fitted. Raises
/// `std::runtime_error` with a clause that names the remedy for a page beyond the limits. Counts a
/// drawing that the paper cuts off in `warnings`.
void frame(scene::Page& page, const PageFrame& frame, Warnings& warnings);

}  // namespace psrender
