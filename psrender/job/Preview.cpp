#include "psrender/job/Preview.h"

#include "psrender/job/Ghostscript.h"

#include <stdexcept>

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

}  // namespace

void renderPreview(const std::string& document, const std::string& prefix, int dotsPerInch) {
    const std::string file = document.starts_with('/') ? document : "./" + document;
    const bool done = runGhostscript(
        {"-sDEVICE=png16m", "-r" + std::to_string(dotsPerInch), "-dTextAlphaBits=4",
         "-dGraphicsAlphaBits=4", "-sOutputFile=" + outputPattern(prefix), "-f", file},
        "no preview", "leave out --preview");
    if (!done)
        throw std::runtime_error("no preview: Ghostscript could not render " + document + " to " +
                                 prefix + "-1.png; check that the folder exists");
}

}  // namespace psrender
