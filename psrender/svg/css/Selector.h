#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace psrender::svg {

/// A condition on one attribute; the name of the test says how `value` must lie in it.
struct AttributeTest {
    enum class Kind : std::uint8_t { exists, equals, hasWord, isLanguage, begins, ends, contains };

    std::string_view name;
    Kind kind = Kind::exists;
    std::string_view value;
};

/// A condition on where an element stands. The nth ones count the children of its parent, all or
/// those of its type, from the first or the last, and hold for every count of `step` n + `offset`.
struct PlaceTest {
    enum class Kind : std::uint8_t { root, empty, nth, nthLast, nthOfType, nthLastOfType };

    Kind kind = Kind::root;
    int step = 0;
    int offset = 1;
};

/// How an element relates to the one that the compound to the left in the text describes.
enum class Combinator : std::uint8_t { descendant, child, nextSibling, laterSibling };

/// The conditions on one element; empty views ask for nothing.
struct Compound {
    std::string_view type;
    std::string_view id;
    std::vector<std::string_view> classes;
    std::vector<AttributeTest> attributes;
    std::vector<PlaceTest> places;
    std::string_view language;         ///< that it or an element around it is in
    std::vector<Compound> exceptions;  ///< what it must not fit
    bool isDynamic = false;            ///< asks for what paper never shows, such as a pointer
    Combinator relation = Combinator::descendant;  ///< to the next of `Selector::compounds`
};

struct Selector {
    std::vector<Compound> compounds;  ///< from the subject leftwards; never empty
    std::uint32_t specificity = 0;
};

/// The selectors of a comma list; nothing if any of them is wrong, holds a unknown
/// pseudo-class, or has more than 64 compounds. They are views into
/// `text`.
std::optional<std::vector<Selector>> parseSelectors(std::string_view text);

}  // namespace psrender::svg
