#pragma once

#include "psrender/svg/values/Color.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace psrender::svg {

/// A paint that refers to nothing in the document.
struct PlainPaint {
    enum class Kind : std::uint8_t { none, color, currentColor, contextFill, contextStroke };

    Kind kind = Kind::none;
    Rgba color;

    friend bool operator==(const PlainPaint&, const PlainPaint&) = default;
};

/// The value of a fill or stroke property. With a reference, `plain` is its fallback, which is
/// what to paint if the reference cannot be followed.
struct PaintValue {
    std::string_view reference;  ///< the id of a paint server; empty if in another file
    bool hasReference = false;
    PlainPaint plain;
    bool hasFallback = false;

    friend bool operator==(const PaintValue&, const PaintValue&) = default;
};

/// The id that "url(#id)" refers to, empty for "none" and for what is not in the document; nothing
/// for any other text.
std::optional<std::string_view> parseReference(std::string_view text);

std::optional<PlainPaint> parsePlainPaint(std::string_view text);
std::optional<PaintValue> parsePaint(std::string_view text);

}  // namespace psrender::svg
