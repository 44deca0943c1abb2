#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace psrender::svg {

/// A stretch of an XML document that is either all text or one tag, comment, CDATA section,
/// instruction or document type. Together they are the whole document.
struct Markup {
    enum class Kind : std::uint8_t { text, startTag, emptyTag, endTag, documentType, other };

    Kind kind = Kind::text;
    std::string_view text;
};

/// Splits a document without checking it: what has no end reaches to the end of the text.
class MarkupScanner {
public:
    explicit MarkupScanner(std::string_view text) : text_(text) {}

    std::optional<Markup> next();

private:
    [[nodiscard]] Markup::Kind kindHere() const;
    [[nodiscard]] std::size_t endOf(Markup::Kind kind) const;
    [[nodiscard]] std::size_t endOfMiscellaneous() const;
    [[nodiscard]] std::size_t after(std::string_view terminator) const;

    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace psrender::svg
