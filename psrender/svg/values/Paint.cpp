#include "psrender/svg/values/Paint.h"

#include "psrender/svg/values/Characters.h"

namespace psrender::svg {

namespace {

constexpr auto kNone = std::string_view::npos;

/// The id in the address between the parentheses of url().
std::string_view localId(std::string_view address) {
    address = trimmed(address);
    if (address.size() > 1 && (address.front() == '"' || address.front() == '\''))
        address = trimmed(address.substr(1, address.size() - 2));
    return address.starts_with('#') ? address.substr(1) : std::string_view();
}

std::optional<PaintValue> parseServer(std::string_view text) {
    const std::size_t end = text.find(')');
    if (end == kNone)
        return std::nullopt;
    PaintValue paint;
    paint.hasReference = true;
    paint.reference = localId(text.substr(4, end - 4));
    const std::string_view fallback = trimmed(text.substr(end + 1));
    if (fallback.empty())
        return paint;
    const auto plain = parsePlainPaint(fallback);
    if (!plain)
        return std::nullopt;
    paint.plain = *plain;
    paint.hasFallback = true;
    return paint;
}

}  // namespace

std::optional<std::string_view> parseReference(std::string_view text) {
    const std::string_view value = trimmed(text);
    if (equalsIgnoringCase(value, "none"))
        return std::string_view();
    if (!equalsIgnoringCase(value.substr(0, 4), "url(") || !value.ends_with(')'))
        return std::nullopt;
    return localId(value.substr(4, value.size() - 5));
}

std::optional<PlainPaint> parsePlainPaint(std::string_view text) {
    // A device colour stands before its equivalent in an ICC profile, which is not read.
    const std::string_view value = trimmed(text.substr(0, text.find("icc-color(")));
    if (equalsIgnoringCase(value, "none"))
        return PlainPaint{};
    if (equalsIgnoringCase(value, "currentColor"))
        return PlainPaint{PlainPaint::Kind::currentColor, {}};
    if (equalsIgnoringCase(value, "context-fill"))
        return PlainPaint{PlainPaint::Kind::contextFill, {}};
    if (equalsIgnoringCase(value, "context-stroke"))
        return PlainPaint{PlainPaint::Kind::contextStroke, {}};
    const std::optional<Rgba> color = parseColor(value);
    return color ? std::optional(PlainPaint{PlainPaint::Kind::color, *color}) : std::nullopt;
}

std::optional<PaintValue> parsePaint(std::string_view text) {
    const std::string_view value = trimmed(text);
    if (equalsIgnoringCase(value.substr(0, 4), "url("))
        return parseServer(value);
    const auto plain = parsePlainPaint(value);
    return plain ? std::optional(PaintValue{{}, false, *plain}) : std::nullopt;
}

}  // namespace psrender::svg
