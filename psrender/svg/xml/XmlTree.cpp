#include "psrender/svg/xml/XmlTree.h"

#include "psrender/svg/values/Characters.h"
#include "psrender/svg/xml/Conditions.h"
#include "psrender/svg/xml/ElementKind.h"
#include "psrender/svg/xml/EntityExpander.h"
#include "psrender/svg/xml/MarkupScanner.h"
#include "psrender/svg/xml/Namespaces.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <algorithm>
#include <string>

namespace psrender::svg {

namespace {

constexpr std::size_t kDeepestNesting = 1000;
constexpr std::size_t kMostLetters = 60;  // of an id in a message

std::string describe(pugi::xml_parse_status status) {
    switch (status) {
        case pugi::status_out_of_memory:
            return "the document does not fit into memory; split it";
        case pugi::status_bad_attribute:
            return "an attribute is not well-formed; correct its name or its quotes, "
                   "or complete the file if it is cut short";
        case pugi::status_bad_comment:
        case pugi::status_bad_cdata:
        case pugi::status_bad_pi:
        case pugi::status_bad_doctype:
            return "a comment, CDATA section, instruction or document type has no end; close it";
        case pugi::status_end_element_mismatch:
            return "an end tag does not fit the element that is open; correct the nesting, "
                   "or complete the file if it is cut short";
        default:
            return "the text is not well-formed XML; correct the tag, "
                   "or complete the file if it is cut short";
    }
}

/// What a user finds an element by; empty for what is none.
std::string tagOf(pugi::xml_node node) {
    if (node.type() != pugi::node_element)
        return {};
    const std::string_view id = node.attribute("id").value();
    std::string tag = std::string("<") + node.name();
    if (!id.empty())
        tag.append(" id=\"").append(id.substr(0, kMostLetters)).append("\"");
    return tag + ">";
}

}  // namespace

XmlTree::XmlTree(std::string_view bytes, const std::string& name, const ReadingLimits& limits,
                 const std::vector<std::string>& languages)
    : source_(bytes, name) {
    expandEntities(source_);
    checkSize(limits);
    parse();
    checkTopLevel();
    normalizeNames(*this);
    if (elementKind(root().name()) != ElementKind::svg)
        fail(root(), "the root element is not <svg> of SVG; give an SVG file");
    if (!languages.empty())
        chooseLanguages(root(), languages);
    index();
}

/// Deeper trees would exhaust the stack of whoever walks them, larger ones the memory.
void XmlTree::checkSize(const ReadingLimits& limits) const {
    std::size_t depth = 0;
    std::size_t elements = 0;
    MarkupScanner scanner(source_.text());
    while (const auto markup = scanner.next()) {
        if (markup->kind == Markup::Kind::startTag || markup->kind == Markup::Kind::emptyTag)
            ++elements;
        if (elements > limits.elements())
            source_.fail("there are more than " + std::to_string(limits.elements()) +
                         " elements; split the drawing or raise the limit with --max-shapes");
        if (markup->kind == Markup::Kind::endTag && depth > 0)
            --depth;
        if (markup->kind == Markup::Kind::startTag && ++depth > kDeepestNesting)
            source_.fail(
                static_cast<std::size_t>(markup->text.data() - source_.text().data()),
                "elements are nested more than 1000 deep; remove groups that hold one group only");
    }
}

void XmlTree::parse() {
    const std::string_view text = source_.text();
    const auto encoding = source_.wasConverted() ? pugi::encoding_utf8 : pugi::encoding_auto;
    const pugi::xml_parse_result result = document_.load_buffer(
        text.data(), text.size(),
        pugi::parse_default | pugi::parse_fragment | pugi::parse_ws_pcdata, encoding);
    if (!result)
        source_.fail(static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset, 0)),
                     describe(result.status));
}

void XmlTree::checkTopLevel() const {
    std::size_t elements = 0;
    for (const pugi::xml_node node : document_) {
        const bool isElement = node.type() == pugi::node_element;
        if (node.type() == pugi::node_pcdata && trimmed(node.value()).empty())
            continue;
        elements += isElement ? 1 : 0;
        if (!isElement || elements > 1)
            fail(node, "there is something outside of the root element; remove it");
    }
    if (elements == 0)
        source_.fail("there is no element in the file; give an SVG file");
}

void XmlTree::index() {
    forEachElement(root(), [this](pugi::xml_node element, std::size_t) {
        if (const pugi::xml_attribute id = element.attribute("id"))
            ids_.try_emplace(id.value(), element);
        const ElementKind kind = elementKind(element.name());
        if (kind == ElementKind::style)
            styles_.push_back(element);
        else if (kind == ElementKind::use)
            if (const std::string_view href = hrefOf(element); href.starts_with('#'))
                ++uses_[href.substr(1)];
    });
}

std::size_t XmlTree::timesUsed(std::string_view id) const {
    const auto found = uses_.find(id);
    return found == uses_.end() ? 0 : found->second;
}

pugi::xml_node XmlTree::byId(std::string_view id) const {
    const auto found = ids_.find(id);
    return found == ids_.end() ? pugi::xml_node() : found->second;
}

Place XmlTree::placeOf(pugi::xml_node node) const {
    const std::ptrdiff_t offset = node.offset_debug();
    Place place = offset < 0 ? source_.place() : source_.placeAt(static_cast<std::size_t>(offset));
    place.element = tagOf(node);
    return place;
}

void XmlTree::fail(pugi::xml_node where, const std::string& sentence) const {
    throw InputError(placeOf(where), sentence);
}

std::string_view hrefOf(pugi::xml_node node) {
    for (const char* name : {"href", "xlink:href"})
        if (const pugi::xml_attribute href = node.attribute(name))
            return trimmed(href.value());
    for (const pugi::xml_attribute attribute : node.attributes())
        if (std::string_view(attribute.name()).ends_with(":href"))
            return trimmed(attribute.value());
    return {};
}

}  // namespace psrender::svg
