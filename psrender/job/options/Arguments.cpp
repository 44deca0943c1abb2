#include "psrender/job/options/Arguments.h"

#include "psrender/job/options/Values.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <string_view>
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

void requireOnlyForJoining(int argc, char** argv) {
    constexpr std::array<std::string_view, 9> kFitting{"--join",    "--output", "--format",
                                                       "--config",  "--strict", "--quiet",
                                                       "--verbose", "-q",       "-v"};
    for (int i = 1; i < argc && argv[i] != std::string_view("--"); ++i) {
        const std::string_view argument = argv[i];
        const std::string_view name = argument.substr(0, argument.find('='));
        const bool isOption = argument.size() > 1 && argument.front() == '-';
        const bool fits = name.starts_with("-o") || name.starts_with("-f") ||
                          std::ranges::find(kFitting, name) != kFitting.end();
        if (isOption && !fits)
            throw CLI::ValidationError(
                "--join",
                "takes parts as they are; give " + std::string(name) + " where the parts are made");
    }
}

}  // namespace psrender::options
