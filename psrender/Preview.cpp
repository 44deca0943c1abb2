#include "psrender/Preview.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <vector>

namespace psrender {

namespace {

/// The interpreter takes "%d" for the page number and "|" for a pipe; a name is neither.
std::string outputPattern(const std::string& prefix) {
    std::string pattern = prefix.starts_with('/') ? "" : "./";
    for (const char c : prefix) {
        pattern += c;
        if (c == '%')
            pattern += '%';
    }
    return pattern + "-%d.png";
}

int runAndWait(std::vector<std::string> arguments) {
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    pid_t child = 0;
    if (::posix_spawnp(&child, pointers[0], nullptr, nullptr, pointers.data(), environ) != 0)
        throw std::runtime_error(
            "no preview: Ghostscript (gs) was not found; install it or leave out --preview");
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

}  // namespace

void renderPreview(const std::string& document, const std::string& prefix, int dotsPerInch) {
    const std::string file = document.starts_with('/') ? document : "./" + document;
    const int status =
        runAndWait({"gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=png16m",
                    "-r" + std::to_string(dotsPerInch), "-dTextAlphaBits=4",
                    "-dGraphicsAlphaBits=4", "-sOutputFile=" + outputPattern(prefix), "-f", file});
    if (status != 0)
        throw std::runtime_error("no preview: Ghostscript could not render " + document + " to " +
                                 prefix + "-1.png; check that the folder exists");
}

}  // namespace psrender
