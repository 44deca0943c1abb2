#include "psrender/job/InputFile.h"

#include "Core/Exception.h"
#include "Core/internal/Descriptor.h"
#include "ZipLib/GzipReader.h"
#include "psrender/base/InputError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace psrender {

namespace {

[[noreturn]] void refuse(const std::string& name, const std::string& sentence) {
    throw InputError({name == "-" ? kStandardInput : name}, sentence);
}

[[noreturn]] void failRead(const std::string& name) {
    if (name == "-" && errno == EBADF)
        refuse(name, "is closed; redirect a drawing to it or name a file");
    const std::string reason = std::generic_category().message(errno);
    const bool folder = errno == EISDIR;
    refuse(name, folder ? "this is a folder; name the SVG files in it"
                        : "cannot be read (" + reason + "); check the name and its permissions");
}

std::string readBytes(const std::string& name) {
    const Core::IO::Descriptor file(name == "-" ? STDIN_FILENO
                                                : ::open(name.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.number() < 0)
        failRead(name);
    std::string content;
    std::array<char, 65536> block{};
    for (;;) {
        const ssize_t count = ::read(file.number(), block.data(), block.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            failRead(name);
        if (count == 0)
            break;
        content.append(block.data(), static_cast<std::size_t>(count));
        if (content.size() > kLargestInput)
            refuse(name,
                   "is larger than 256 MiB, which is the most that is read; split the drawing");
    }
    if (content.empty())
        refuse(name, "is empty; give an SVG drawing");
    return content;
}

}  // namespace

std::string readInput(const std::string& name) {
    std::string content = readBytes(name);
    if (!ZipLib::GzipReader::isGzip(content))
        return content;
    try {
        return ZipLib::GzipReader::unpack(content, kLargestInput);
    } catch (const Core::FormatException& error) {
        refuse(name, error.getMessage() + "; pack a drawing of less than 256 MiB with gzip");
    }
}

std::string readBeginning(const std::string& name, std::size_t count) {
    struct stat status {};
    if (name == "-" || ::stat(name.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    const Core::IO::Descriptor file(::open(name.c_str(), O_RDONLY | O_CLOEXEC));
    std::string bytes(count, '\0');
    const ssize_t size = file.number() < 0 ? 0 : ::read(file.number(), bytes.data(), count);
    bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    return bytes;
}

}  // namespace psrender
