#pragma once

#include <functional>
#include <string>

namespace psrender::options {

/// A check for CLI11: empty if `parse` understands the text, else what was wrong.
template <class Parse>
std::function<std::string(const std::string&)> check(Parse parse, const char* wanted) {
    return [parse, wanted](const std::string& text) {
        return parse(text) ? std::string() : "\"" + text + "\" is not " + wanted;
    };
}

}  // namespace psrender::options
