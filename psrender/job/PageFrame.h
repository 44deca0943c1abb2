#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/job/PaperSize.h"
#include "psrender/scene/DisplayList.h"

#include <optional>

namespace psrender {

/// How a drawing comes to lie on its page.
struct PageFrame {
    std::optional<PaperSize> paper;  ///< else each page is as large as its drawing
    bool landscape = false;          ///< turns the paper
    bool fit = false;                ///< scales the drawing to the paper less the margin
    /// Points on all sides. Without paper the page grows by it.
    double margin = 0;
};

/// The size limits of a page in points: what interpreters and PDF readers take.
inline constexpr double kSmallestPage = 1;
inline constexpr double kLargestPage = 14400;

/// Lays a drawing on its page: in the middle, in its own size or fitted. Raises
/// `std::runtime_error` with a clause that names the remedy for a page beyond the limits. Counts a
/// drawing that the paper cuts off in `warnings`.
void frame(scene::Page& page, const PageFrame& frame, Warnings& warnings);

}  // namespace psrender
