#include "psrender/svg/xml/EntityExpander.h"

#include "psrender/svg/values/Characters.h"
#include "psrender/svg/xml/MarkupScanner.h"
#include "psrender/svg/xml/SourceText.h"

#include <map>
#include <utility>

namespace psrender::svg {

namespace {

constexpr int kDeepestNesting = 4;
constexpr std::size_t kLargestGrowth = std::size_t{64} * 1024;
constexpr auto kNone = std::string_view::npos;

using Entities = std::map<std::string_view, std::string_view>;

/// Takes the word at the beginning of `text` off it.
std::string_view takeWord(std::string_view& text) {
    text = trimmed(text);
    std::size_t end = 0;
    while (end < text.size() && !isSpace(text[end]) && text[end] != '"' && text[end] != '\'')
        ++end;
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(end);
    return word;
}

/// Reads `NAME "value"`; parameter entities and those with an address are passed over.
void readEntity(std::string_view declaration, Entities& entities) {
    const std::string_view name = takeWord(declaration);
    declaration = trimmed(declaration);
    if (name.empty() || name == "%" || declaration.empty())
        return;
    const char quote = declaration.front();
    const std::size_t end = declaration.find(quote, 1);
    if ((quote == '"' || quote == '\'') && end != kNone)
        entities.try_emplace(name, declaration.substr(1, end - 1));
}

Entities readEntities(std::string_view documentType) {
    Entities entities;
    const std::size_t open = documentType.find('[');
    if (open == kNone)
        return entities;
    MarkupScanner scanner(documentType.substr(open + 1));
    constexpr std::string_view kOpening = "<!ENTITY";
    while (const auto markup = scanner.next())
        if (markup->text.starts_with(kOpening))
            readEntity(markup->text.substr(kOpening.size()), entities);
    return entities;
}

/// The declarations stand before the root element, so the search ends there.
Entities findEntities(std::string_view text) {
    MarkupScanner scanner(text);
    while (const auto markup = scanner.next()) {
        if (markup->kind == Markup::Kind::documentType)
            return readEntities(markup->text);
        if (markup->kind == Markup::Kind::startTag || markup->kind == Markup::Kind::emptyTag)
            break;
    }
    return {};
}

class Expander {
public:
    Expander(const SourceText& source, const Entities& entities)
        : source_(source), entities_(entities) {}

    std::string expandDocument() {
        MarkupScanner scanner(source_.text());
        while (const auto markup = scanner.next()) {
            at_ = static_cast<std::size_t>(markup->text.data() - source_.text().data());
            if (markup->kind == Markup::Kind::other || markup->kind == Markup::Kind::documentType)
                result_ += markup->text;
            else
                expand(markup->text, markup->kind != Markup::Kind::text, 0);
        }
        return std::move(result_);
    }

private:
    void expand(std::string_view text, bool isInTag, int depth);
    void append(std::string_view text, bool mustBeQuoted);
    void countGrowth(std::size_t added);

    const SourceText& source_;
    const Entities& entities_;
    std::string result_;
    std::size_t growth_ = 0;
    std::size_t at_ = 0;  ///< where the markup at hand begins, for messages
};

void Expander::expand(std::string_view text, bool isInTag, int depth) {
    const bool mustBeQuoted = isInTag && depth > 0;
    std::size_t done = 0;
    for (std::size_t amp = text.find('&'); amp != kNone; amp = text.find('&', amp + 1)) {
        const std::size_t end = text.find_first_of("; \t\n\r<>\"'&", amp + 1);
        if (end == kNone || text[end] != ';')
            continue;
        const auto entity = entities_.find(text.substr(amp + 1, end - amp - 1));
        if (entity == entities_.end())
            continue;
        if (depth == kDeepestNesting)
            source_.fail(at_,
                         "entities refer to each other more than 4 deep; "
                         "write their text where it is needed");
        append(text.substr(done, amp - done), mustBeQuoted);
        countGrowth(entity->second.size());
        expand(entity->second, isInTag, depth + 1);
        done = end + 1;
    }
    append(text.substr(done), mustBeQuoted);
}

/// Inside a tag, what an entity brings must not end the attribute's value.
void Expander::append(std::string_view text, bool mustBeQuoted) {
    for (const char c : text) {
        if (mustBeQuoted && c == '"')
            result_ += "&quot;";
        else if (mustBeQuoted && c == '<')
            result_ += "&lt;";
        else if (mustBeQuoted && c == '\'')
            result_ += "&apos;";
        else
            result_ += c;
    }
}

void Expander::countGrowth(std::size_t added) {
    growth_ += added;
    if (growth_ > kLargestGrowth)
        source_.fail(at_,
                     "entities would add more than 64 KiB to the file; "
                     "write their text where it is needed");
}

}  // namespace

void expandEntities(SourceText& source) {
    const Entities entities = findEntities(source.text());
    if (!entities.empty())
        source.replace(Expander(source, entities).expandDocument());
}

}  // namespace psrender::svg
