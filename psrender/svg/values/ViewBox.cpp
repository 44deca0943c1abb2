#include "psrender/svg/values/ViewBox.h"

#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/NumberScanner.h"

#include <algorithm>
#include <array>

namespace psrender::svg {

using scene::Affine;
using scene::Rect;

namespace {

/// What becomes of the room that is left over: how much of it stands before the box.
struct Fit {
    double shareX = 0.5;
    double shareY = 0.5;
    bool isSlice = false;
    bool isStretched = false;
};

std::optional<double> shareOf(std::string_view position) {
    if (position == "Min")
        return 0;
    if (position == "Mid")
        return 0.5;
    if (position == "Max")
        return 1;
    return std::nullopt;
}

/// Reads "xMidYMax" and its like.
void readAlignment(std::string_view word, Fit& fit) {
    if (word.size() != 8 || word[0] != 'x' || word[4] != 'Y')
        return;
    const auto x = shareOf(word.substr(1, 3));
    const auto y = shareOf(word.substr(5, 3));
    if (!x || !y)
        return;
    fit.shareX = *x;
    fit.shareY = *y;
}

Fit parseFit(std::string_view text) {
    Fit fit;
    forEachWord(text, [&fit](std::string_view word) {
        if (word == "none")
            fit.isStretched = true;
        else if (word == "slice")
            fit.isSlice = true;
        else
            readAlignment(word, fit);
    });
    return fit;
}

}  // namespace

std::optional<Rect> parseViewBox(std::string_view text) {
    std::array<double, 4> numbers{};
    NumberScanner scanner(trimmed(text));
    for (double& number : numbers) {
        const auto next = scanner.number();
        if (!next)
            return std::nullopt;
        number = *next;
        scanner.skipCommaSpace();
    }
    if (!scanner.atEnd() || numbers[2] < 0 || numbers[3] < 0)
        return std::nullopt;
    return Rect{numbers[0], numbers[1], numbers[2], numbers[3]};
}

Affine fitViewBox(const Rect& box, const Rect& viewport, std::string_view preserveAspectRatio) {
    const Fit fit = parseFit(preserveAspectRatio);
    double scaleX = viewport.width / box.width;
    double scaleY = viewport.height / box.height;
    if (!fit.isStretched) {
        const double both = fit.isSlice ? std::max(scaleX, scaleY) : std::min(scaleX, scaleY);
        scaleX = both;
        scaleY = both;
    }
    const double spareX = viewport.width - box.width * scaleX;
    const double spareY = viewport.height - box.height * scaleY;
    return Affine::translation(viewport.x + spareX * fit.shareX, viewport.y + spareY * fit.shareY) *
           Affine::scaling(scaleX, scaleY) * Affine::translation(-box.x, -box.y);
}

}  // namespace psrender::svg
