#include "psrender/svg/xml/MarkupScanner.h"

#include <algorithm>

namespace psrender::svg {

namespace {

constexpr auto kNone = std::string_view::npos;

/// The position after the '>' that ends a tag beginning at `at`; quoted text may hold others.
/// Brackets protect the declarations inside a document type.
std::size_t endOfTag(std::string_view text, std::size_t at) {
    int brackets = 0;
    for (; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '>' && brackets == 0)
            return at + 1;
        if (c == '[')
            ++brackets;
        else if (c == ']')
            --brackets;
        else if (c == '"' || c == '\'')
            at = std::min(text.find(c, at + 1), text.size());
    }
    return text.size();
}

}  // namespace

std::optional<Markup> MarkupScanner::next() {
    if (at_ == text_.size())
        return std::nullopt;
    const std::size_t begin = at_;
    Markup::Kind kind = kindHere();
    at_ = endOf(kind);
    const std::string_view text = text_.substr(begin, at_ - begin);
    if (kind == Markup::Kind::startTag && text.ends_with("/>"))
        kind = Markup::Kind::emptyTag;
    return Markup{kind, text};
}

Markup::Kind MarkupScanner::kindHere() const {
    const std::string_view here = text_.substr(at_, 9);
    if (here.front() != '<')
        return Markup::Kind::text;
    if (here.starts_with("</"))
        return Markup::Kind::endTag;
    if (here == "<!DOCTYPE")
        return Markup::Kind::documentType;
    if (here.starts_with("<!") || here.starts_with("<?"))
        return Markup::Kind::other;
    return Markup::Kind::startTag;
}

std::size_t MarkupScanner::endOf(Markup::Kind kind) const {
    if (kind == Markup::Kind::text)
        return std::min(text_.find('<', at_), text_.size());
    if (kind == Markup::Kind::other)
        return endOfMiscellaneous();
    return endOfTag(text_, at_);
}

std::size_t MarkupScanner::endOfMiscellaneous() const {
    const std::string_view here = text_.substr(at_);
    if (here.starts_with("<!--"))
        return after("-->");
    if (here.starts_with("<![CDATA["))
        return after("]]>");
    return here.starts_with("<?") ? after("?>") : endOfTag(text_, at_);
}

std::size_t MarkupScanner::after(std::string_view terminator) const {
    const std::size_t found = text_.find(terminator, at_);
    return found == kNone ? text_.size() : found + terminator.size();
}

}  // namespace psrender::svg
