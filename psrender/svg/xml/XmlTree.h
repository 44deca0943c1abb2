#pragma once

#include "psrender/svg/values/ReadingLimits.h"
#include "psrender/svg/xml/SourceText.h"

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace psrender::svg {

/// A well-formed document with an `svg` element at its root, its entities expanded, its
/// elements named without prefix and found by their id. The text behind the string views that
/// its nodes give out lives as long as the tree.
class XmlTree {
public:
    /// Throws `InputError` for anything else. `bytes` must outlive the tree. Where `languages` are
    /// named, elements that ask for others are not in the tree.
    XmlTree(std::string_view bytes, const std::string& name, const ReadingLimits& limits = {},
            const std::vector<std::string>& languages = {});

    [[nodiscard]] pugi::xml_node root() const { return document_.document_element(); }
    /// The first element with this id, or none.
    [[nodiscard]] pugi::xml_node byId(std::string_view id) const;
    /// How often `use` elements refer to this id.
    [[nodiscard]] std::size_t timesUsed(std::string_view id) const;
    /// The `style` elements, in document order.
    [[nodiscard]] const std::vector<pugi::xml_node>& styleElements() const { return styles_; }

    /// Where a node of the tree stands in the text.
    [[nodiscard]] Place placeOf(pugi::xml_node node) const;
    [[noreturn]] void fail(pugi::xml_node where, const std::string& sentence) const;

private:
    void checkSize(const ReadingLimits& limits) const;
    void parse();
    void checkTopLevel() const;
    void index();

    SourceText source_;
    pugi::xml_document document_;
    std::unordered_map<std::string_view, pugi::xml_node> ids_;
    std::unordered_map<std::string_view, std::size_t> uses_;  ///< by the id of their target
    std::vector<pugi::xml_node> styles_;
};

/// The target of a link, with or without a namespace prefix on the attribute; else empty.
std::string_view hrefOf(pugi::xml_node node);

}  // namespace psrender::svg
