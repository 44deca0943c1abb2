#include "Core/FileSystem.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

namespace Core::IO {

namespace {

std::string temporaryFolder() {
    // Only a process that changes its environment while it opens documents could be harmed.
    const char* chosen = std::getenv("TMPDIR");  // NOLINT(concurrency-mt-unsafe)
    return chosen && *chosen != '\0' ? chosen : "/tmp";
}

std::string randomHexadecimal() {
    std::random_device source;
    std::string text;
    for (int word = 0; word < 4; ++word) {
        std::array<char, 9> digits{};
        std::snprintf(digits.data(), digits.size(), "%08x", source());
        text += digits.data();
    }
    return text;
}

}  // namespace

String FileSystem::getTempFileName(const String& prefix) {
    return {temporaryFolder() + "/" + prefix.toUtf8() + randomHexadecimal()};
}

}  // namespace Core::IO
