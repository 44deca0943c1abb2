#include "native/PathArrays.h"

namespace psgraphics::python {

using Drawing::Path;

namespace {

enum Code : std::uint8_t { end = 0, move = 1, line = 2, quadratic = 3, cubic = 4, close = 79 };

/// Walks vertices and codes side by side.
class PathReader {
public:
    PathReader(const Rows<float>& vertices, const ArrayOf<std::uint8_t>& codes, Path& path)
        : vertices_(vertices), codes_(codes.data()), path_(path) {}

    void read() {
        while (at_ < vertices_.size() && codes_[at_] != end)
            at_ += step(codes_[at_]);
    }

private:
    std::size_t step(std::uint8_t code) {
        const float* p = vertices_[at_];
        switch (code) {
            case move:
                path_.moveTo(p[0], p[1]);
                start_ = p;
                break;
            case line:
                path_.lineTo(p[0], p[1]);
                break;
            case quadratic:
                return addQuadratic(p);
            case cubic:
                require(3);
                path_.curveTo(p[0], p[1], p[2], p[3], p[4], p[5]);
                last_ = p + 4;
                return 3;
            case close:
                path_.close();
                p = start_ ? start_ : p;
                break;
            default:
                throw py::value_error("a path holds the code " + std::to_string(code) +
                                      "; there are 0, 1, 2, 3, 4 and 79");
        }
        last_ = p;
        return 1;
    }

    /// The cubic curve with the same shape: its controls lie two thirds of the way to the one.
    std::size_t addQuadratic(const float* p) {
        require(2);
        const float* from = last_ ? last_ : p;
        const auto control = [&](const float* near, int axis) {
            return near[axis] + (p[axis] - near[axis]) * 2 / 3;
        };
        const float* to = p + 2;
        path_.curveTo(control(from, 0), control(from, 1), control(to, 0), control(to, 1), to[0],
                      to[1]);
        last_ = to;
        return 2;
    }

    void require(std::size_t points) const {
        if (vertices_.size() - at_ < points)
            throw py::value_error("a path ends in the middle of a curve");
    }

    const Rows<float>& vertices_;
    const std::uint8_t* codes_;
    Path& path_;
    std::size_t at_ = 0;
    const float* start_ = nullptr;
    const float* last_ = nullptr;
};

}  // namespace

void addLine(Path& path, const float* points, std::size_t count, bool closed) {
    for (std::size_t i = 0; i < count; ++i, points += 2) {
        if (i == 0)
            path.moveTo(points[0], points[1]);
        else
            path.lineTo(points[0], points[1]);
    }
    if (closed && count != 0)
        path.close();
}

Core::SmartPtr<Path> pathFrom(const ArrayOf<float>& vertices,
                              const std::optional<ArrayOf<std::uint8_t>>& codes, bool closed) {
    const Rows<float> points = rowsOf(vertices, 2, "vertices");
    auto path = Core::makeObject<Path>();
    path->reserve(points.size() + 1);
    if (!codes) {
        addLine(*path, points[0], points.size(), closed);
        return path;
    }
    if (static_cast<std::size_t>(codes->size()) != points.size())
        throw py::value_error("there are " + std::to_string(codes->size()) + " codes for " +
                              std::to_string(points.size()) + " vertices");
    PathReader(points, *codes, *path).read();
    return path;
}

}  // namespace psgraphics::python
