#include "Drawing/ColorFieldBrush.h"

#include "Core/Exception.h"

#include <cstddef>
#include <string>
#include <utility>

namespace Drawing {

ColorFieldBrush::ColorFieldBrush(XPointF corner, SizeF size, std::int32_t columns,
                                 std::int32_t rows, Core::ByteArray colors, const Matrix& matrix,
                                 float opacity)
    : Brush(opacity),
      corner_(corner),
      size_(size),
      columns_(columns),
      rows_(rows),
      colors_(std::move(colors)),
      matrix_(matrix) {
    constexpr std::size_t kComponents = 3;
    if (columns < 2 || rows < 2 ||
        colors_.size() !=
            kComponents * static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows))
        throw Core::FormatException("ColorFieldBrush", 1,
                                    "a colour field of " + std::to_string(columns) + " by " +
                                        std::to_string(rows) + " colours does not fit " +
                                        std::to_string(colors_.size()) + " bytes");
}

ColorFieldBrush::~ColorFieldBrush() = default;

}  // namespace Drawing
