#include "Print/fonts/internal/ClusterTexts.h"

#include <algorithm>
#include <cstddef>

namespace Drawing::Print {

std::vector<std::u32string_view> shareOut(std::u32string_view characters,
                                          std::span<const float> advances) {
    std::vector<std::u32string_view> texts(advances.size());
    auto open = std::ranges::count_if(advances, [](float advance) { return advance != 0; });
    if (open == 0 && !texts.empty())
        texts.front() = characters;
    for (std::size_t i = 0; i < advances.size(); ++i) {
        if (advances[i] == 0)
            continue;
        const std::size_t count =
            --open == 0 ? characters.size() : std::min<std::size_t>(characters.size(), 1);
        texts[i] = characters.substr(0, count);
        characters.remove_prefix(count);
    }
    return texts;
}

}  // namespace Drawing::Print
