#pragma once

#include "psrender/svg/values/Characters.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace psrender::svg {

/// A word of a style sheet and what it stands for.
template <typename Value>
struct Keyword {
    std::string_view word;
    Value value;
};

template <typename Value, std::size_t count>
std::optional<Value> lookUp(const std::array<Keyword<Value>, count>& keywords,
                            std::string_view text) {
    for (const Keyword<Value>& keyword : keywords)
        if (equalsIgnoringCase(keyword.word, text))
            return keyword.value;
    return std::nullopt;
}

/// Sets a field if there is a value for it.
template <typename Field, typename Value>
bool assign(Field& field, const std::optional<Value>& value) {
    if (value)
        field = *value;
    return value.has_value();
}

}  // namespace psrender::svg
