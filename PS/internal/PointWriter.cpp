#include "PS/internal/PointWriter.h"

#include <cstring>

namespace Drawing::PS {

namespace {

/// Copied in one instruction; the room behind the text is free, and what lies behind the source
/// belongs to the same buffer, as the line ends after it.
constexpr std::size_t kAtOnce = 16;

}  // namespace

char* PointWriter::writeCoordinate(char* out, float value, Axis& axis) const {
    for (const Written* known : {&axis.latest, &axis.first}) {
        if (known->value != value || !known->text || known->length > kAtOnce)
            continue;
        const std::size_t length = known->length;
        std::memmove(out, known->text, kAtOnce);
        axis.latest = {value, out, length};
        return out + length;
    }
    char* end = Core::writeNumber(out, value);
    axis.latest = {value, out, static_cast<std::size_t>(end - out)};
    if (begins_)
        axis.first = axis.latest;
    return end;
}

}  // namespace Drawing::PS
