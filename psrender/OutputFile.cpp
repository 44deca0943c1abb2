#include "psrender/OutputFile.h"

#include "Core/Exception.h"
#include "Core/FileStream.h"
#include "psrender/InputFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace psrender {

namespace {

using Core::IO::FileStream;

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP};

/// The file to remove when the process is interrupted; empty if there is none. Fixed memory, as a
/// signal handler may not touch anything else.
std::array<char, PATH_MAX> interruptedFile{};

extern "C" void removeAndGo(int signal) {
    if (interruptedFile[0] != '\0')
        ::unlink(interruptedFile.data());
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void removeWhenInterrupted(const std::string& file) {
    std::strncpy(interruptedFile.data(), file.c_str(), interruptedFile.size() - 1);
    for (const int signal : kSignals)
        if (std::signal(signal, file.empty() ? SIG_DFL : removeAndGo) == SIG_IGN)
            std::signal(signal, SIG_IGN);
}

/// What a symbolic link leads to, so that the link stays a link.
std::string resolved(const std::string& name) {
    std::array<char, PATH_MAX> path{};
    return ::realpath(name.c_str(), path.data()) ? path.data() : name;
}

[[noreturn]] void fail(const std::string& action, const std::string& name) {
    throw Core::IOException(action, name, errno);
}

mode_t newFileMode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

OutputFile::OutputFile(const std::string& name) : target_(name) {
    if (name == "-") {
        stream_ = Core::makeObject<FileStream>(STDOUT_FILENO, kStandardOutput);
        return;
    }
    target_ = resolved(name);
    struct stat status {};
    const bool exists = ::stat(target_.c_str(), &status) == 0;
    if (exists && S_ISDIR(status.st_mode)) {
        errno = EISDIR;
        fail("cannot write to", name);
    }
    if (exists && !S_ISREG(status.st_mode)) {
        stream_ = Core::makeObject<FileStream>(target_, true, false, true);
        return;
    }
    openBeside();
    if (::chmod(temporary_.c_str(), exists ? status.st_mode & 07777 : newFileMode()) != 0)
        fail("cannot set the permissions of", temporary_);
}

void OutputFile::openBeside() {
    std::string pattern = target_ + ".XXXXXX";
    const int descriptor = ::mkstemp(pattern.data());
    if (descriptor < 0)
        fail("cannot write to the folder of", target_);
    ::close(descriptor);
    temporary_ = pattern;
    removeWhenInterrupted(temporary_);
    stream_ = Core::makeObject<FileStream>(temporary_, true, true, true);
}

OutputFile::~OutputFile() {
    if (!temporary_.empty())
        discard();
}

void OutputFile::discard() noexcept {
    ::unlink(temporary_.c_str());
    removeWhenInterrupted("");
    temporary_.clear();
}

void OutputFile::commit() {
    static_cast<FileStream&>(*stream_).close();
    if (temporary_.empty())
        return;
    if (std::rename(temporary_.c_str(), target_.c_str()) != 0)
        fail("cannot put the finished file in the place of", target_);
    removeWhenInterrupted("");
    temporary_.clear();
}

}  // namespace psrender
