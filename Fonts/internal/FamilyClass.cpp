#include "Fonts/internal/FamilyClass.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace Fonts {

namespace {

struct Word {
    std::string_view part;
    std::string_view standIn;
};

/// The first word that a name contains decides: "sans" before "serif", as in "sans-serif".
constexpr std::array kWords{
    Word{"mono", "Courier"},          Word{"courier", "Courier"},   Word{"typewriter", "Courier"},
    Word{"consolas", "Courier"},      Word{"fixed", "Courier"},     Word{"terminal", "Courier"},
    Word{"dingbats", "ZapfDingbats"}, Word{"sans", "Helvetica"},    Word{"arial", "Helvetica"},
    Word{"helvetica", "Helvetica"},   Word{"verdana", "Helvetica"}, Word{"tahoma", "Helvetica"},
    Word{"trebuchet", "Helvetica"},   Word{"calibri", "Helvetica"}, Word{"segoe", "Helvetica"},
    Word{"gothic", "Helvetica"},      Word{"grotesk", "Helvetica"}, Word{"system-ui", "Helvetica"},
    Word{"serif", "Times"},           Word{"times", "Times"},       Word{"roman", "Times"},
    Word{"georgia", "Times"},         Word{"garamond", "Times"},    Word{"cambria", "Times"},
    Word{"palatino", "Times"},        Word{"bookman", "Times"},     Word{"schoolbook", "Times"},
    Word{"mincho", "Times"},          Word{"symbol", "Symbol"},
};

std::string lowerCase(std::string name) {
    std::ranges::transform(name, name.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
    });
    return name;
}

}  // namespace

Core::String standInFor(const Core::String& family) {
    const std::string name = lowerCase(family.toUtf8());
    for (const auto& [part, standIn] : kWords)
        if (name.find(part) != std::string::npos)
            return standIn;
    return {};
}

}  // namespace Fonts
