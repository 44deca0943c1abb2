#pragma once

#include "Core/NumberText.h"
#include "Core/Stream.h"

#include <algorithm>
#include <cstddef>

namespace Drawing::PS {

/// Writes the points of one path, a line each: "{x} {y} {operator}".
///
/// Drawings are full of upright and level lines, whose ends share a coordinate with the point
/// before or with the first one. Its digits then stand in the stream's buffer already and are
/// copied, ten times as fast as they were found.
class PointWriter {
public:
    explicit PointWriter(Core::IO::Stream& stream) : stream_(stream) {}

    /// `lineEnd` is a blank, the operator and a line feed.
    template <std::size_t N>
    void write(float x, float y, const char (&lineEnd)[N]) {
        char* out = begin(kRoom + N);
        out = writeCoordinate(out, x, x_);
        *out++ = ' ';
        out = writeCoordinate(out, y, y_);
        end(std::copy_n(lineEnd, N - 1, out));
    }
    /// The next point opens a subpath: later points share with it.
    void beginSubpath() { begins_ = true; }

private:
    /// A number in the buffer.
    struct Written {
        float value = 0;
        const char* text = nullptr;
        std::size_t length = 0;
    };
    /// One coordinate of the first and of the latest point of the subpath.
    struct Axis {
        Written first;
        Written latest;
    };

    static constexpr std::size_t kRoom = 2 * Core::kMaxNumberText<float> + 1;

    /// What was written is still there only if writing goes on right behind it, as streams promise.
    char* begin(std::size_t count) {
        char* out = stream_.reserve(count);
        if (out != next_)
            x_ = y_ = {};
        return out;
    }
    void end(char* out) {
        stream_.commit(out);
        next_ = out;
        begins_ = false;
    }
    char* writeCoordinate(char* out, float value, Axis& axis) const;

    Core::IO::Stream& stream_;
    const char* next_ = nullptr;
    bool begins_ = true;
    Axis x_;
    Axis y_;
};

}  // namespace Drawing::PS
