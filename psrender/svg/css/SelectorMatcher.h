#pragma once

#include "psrender/svg/css/Selector.h"

#include <cstdint>
#include <pugixml.hpp>

namespace psrender::svg {

/// Tells which elements a selector means, and counts its work, so that a sheet made to take
/// for ever can be stopped.
class SelectorMatcher {
public:
    [[nodiscard]] bool matches(const Selector& selector, pugi::xml_node element);

    /// Comparisons done so far; a few nanoseconds each.
    [[nodiscard]] std::uint64_t steps() const { return steps_; }

private:
    /// `never`: nor would an element further up match, as the elements that the rest of the
    /// selector can be found among are then fewer still.
    enum class Result : std::uint8_t { yes, no, never };

    Result matchFrom(const Selector& selector, std::size_t index, pugi::xml_node element);
    Result matchRelated(const Selector& selector, std::size_t index, pugi::xml_node element);
    Result matchAmongAncestors(const Selector& selector, std::size_t index, pugi::xml_node child);
    Result matchAmongSiblings(const Selector& selector, std::size_t index, pugi::xml_node later);
    bool fits(const Compound& compound, pugi::xml_node element);
    bool fits(const AttributeTest& test, pugi::xml_node element);
    bool fits(const PlaceTest& test, pugi::xml_node element);
    bool isInLanguage(std::string_view language, pugi::xml_node element);

    std::uint64_t steps_ = 0;
};

/// Whether `word` is one of the words of `list`.
bool hasWord(std::string_view list, std::string_view word);

}  // namespace psrender::svg
