#pragma once

namespace Drawing {

/// A width and a height, in points where a page is meant.
struct SizeF {
    float width = 0;
    float height = 0;

    friend bool operator==(const SizeF&, const SizeF&) = default;
};

/// A point of user space.
struct XPointF {
    float x = 0;
    float y = 0;

    friend bool operator==(const XPointF&, const XPointF&) = default;
};

}  // namespace Drawing
