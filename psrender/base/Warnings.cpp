#include "psrender/base/Warnings.h"

namespace psrender {

std::vector<std::string> Warnings::sentences() const {
    std::vector<std::string> result;
    for (const auto& [kind, count] : counts_)
        result.push_back(count == 1 ? kind : kind + " (" + std::to_string(count) + " times)");
    return result;
}

}  // namespace psrender
