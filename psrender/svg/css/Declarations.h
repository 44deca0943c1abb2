#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace psrender::svg {

/// One "name: value" of a style, its name found among the properties that the reader knows.
struct Declaration {
    std::uint8_t property = 0;
    bool isImportant = false;
    std::string_view value;
};

/// Appends the declarations of the text between braces or of a style attribute, of which
/// they are views. What is unknown or malformed is passed over up to the next semicolon.
void parseDeclarations(std::string_view text, std::vector<Declaration>& result);

/// The length of the text up to the first of `terminators` that stands outside of strings,
/// parentheses and brackets; the length of it all if there is none.
std::size_t lengthUpTo(std::string_view text, std::string_view terminators);

/// The text with its comments taken out.
std::string withoutComments(std::string_view text);

}  // namespace psrender::svg
