#pragma once

#include "psrender/svg/css/Declarations.h"
#include "psrender/svg/css/Selector.h"

#include <list>
#include <string>
#include <string_view>
#include <vector>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

/// One selector with the declarations that it applies.
struct StyleRule {
    Selector selector;
    std::uint32_t firstDeclaration = 0;
    std::uint32_t endOfDeclarations = 0;
};

/// The rules of all sheets of a document, in their order.
class StyleSheet {
public:
    /// Adds the rules of one `style` element. Rules for other media than print, screen and all
    /// are left out; so are, with a warning, those whose selector is not understood and
    /// sheets in other files.
    void add(std::string_view text, Warnings& warnings);

    [[nodiscard]] const std::vector<StyleRule>& rules() const { return rules_; }
    [[nodiscard]] const std::vector<Declaration>& declarations() const { return declarations_; }
    /// What stands between the braces of each `@font-face`.
    [[nodiscard]] const std::vector<std::string_view>& fontFaces() const { return fontFaces_; }

private:
    void addAtRule(std::string_view& text, Warnings& warnings);
    void addRule(std::string_view& text, Warnings& warnings);

    std::list<std::string> texts_;  ///< what the views in rules and declarations look at
    std::vector<StyleRule> rules_;
    std::vector<Declaration> declarations_;
    std::vector<std::string_view> fontFaces_;
};

/// Whether a sheet for these media concerns a printed page.
bool isForPrint(std::string_view media);

}  // namespace psrender::svg
