#include "psrender/job/options/Arguments.h"

#include "psrender/job/options/Values.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <filesystem>
#include <utility>

namespace psrender::options {

namespace {

std::string variable(const char* name) {
    const char* value = ::secure_getenv(name);
    return value == nullptr ? "" : value;
}

}  // namespace

std::string settingsFile() {
    if (auto named = variable("PSRENDER_CONFIG"); !named.empty())
        return named;
    std::filesystem::path folder = variable("XDG_CONFIG_HOME");
    if (const auto home = variable("HOME"); folder.empty() && !home.empty())
        folder = std::filesystem::path(home) / ".config";
    return folder.empty() ? "" : folder / "psrender.conf";
}

std::vector<std::string> allArguments(int argc, char** argv) {
    std::vector<std::string> result;
    if (std::string defaults = variable("PSRENDER_OPTIONS"); !defaults.empty())
        result = CLI::detail::split_up(std::move(defaults));
    for (int i = 1; i < argc; ++i) {
        const bool isHelp = argv[i] == std::string("-h") && (i + 1 == argc || !isSide(argv[i + 1]));
        result.emplace_back(isHelp ? "--help" : argv[i]);
    }
    return result;
}

}  // namespace psrender::options
