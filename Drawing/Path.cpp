#include "Drawing/Path.h"

namespace Drawing {

Path::Path() = default;
Path::~Path() = default;

void Path::moveTo(float x, float y) {
    add({PathCommandKind::moveTo, x, y});
}

void Path::lineTo(float x, float y) {
    add({PathCommandKind::lineTo, x, y});
}

void Path::curveTo(float x1, float y1, float x2, float y2, float x3, float y3) {
    add({PathCommandKind::curveTo, x3, y3, x1, y1, x2, y2});
}

void Path::close() {
    add({PathCommandKind::close});
}

void Path::add(const PathCommand& command) {
    constexpr std::size_t kFirstRoom = 16;  // of most paths all they need
    if (commands_.capacity() == 0)
        commands_.reserve(kFirstRoom);
    commands_.push_back(command);
}

void Path::reserve(std::size_t count) {
    commands_.reserve(count);
}

}  // namespace Drawing
