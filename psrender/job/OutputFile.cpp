#include "psrender/job/OutputFile.h"

#include "Core/Exception.h"
#include "Core/FileStream.h"
#include "psrender/job/InputFile.h"

#include <fcntl.h>
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

mode_t modeFor(const std::string& target) {
    struct stat status {};
    if (::stat(target.c_str(), &status) == 0)
        return status.st_mode & 07777;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

std::string folderOf(const std::string& name) {
    const auto slash = name.rfind('/');
    return slash == std::string::npos ? "" : name.substr(0, slash + 1);
}

}  // namespace

OutputFile::Temporary::Temporary(const std::string& target)
    : name_(folderOf(target) + ".psrender-XXXXXX"),
      descriptor_(::mkostemp(name_.data(), O_CLOEXEC)) {
    if (descriptor_ < 0)
        fail("cannot make a file in the folder of", target);
    removeWhenInterrupted(name_);
    // A file system without permissions has none to lose.
    static_cast<void>(::fchmod(descriptor_, modeFor(target)));
}

OutputFile::Temporary::~Temporary() {
    if (!name_.empty())
        ::unlink(name_.c_str());
    removeWhenInterrupted("");
}

void OutputFile::Temporary::renameTo(const std::string& target) {
    if (std::rename(name_.c_str(), target.c_str()) != 0)
        fail("cannot put the finished file in the place of", target);
    name_.clear();
}

OutputFile::OutputFile(const std::string& name)
    : target_(name == "-" ? name : resolved(name)),
      file_(open()),
      stream_(Core::makeObject<FileStream>(file_.number(), name == "-" ? kStandardOutput : name)) {}

int OutputFile::open() {
    if (target_ == "-")
        return STDOUT_FILENO;
    struct stat status {};
    if (::stat(target_.c_str(), &status) != 0 || S_ISREG(status.st_mode)) {
        return temporary_.emplace(target_).descriptor();
    }
    const int descriptor = ::open(target_.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0)
        fail("cannot write to", target_);
    return descriptor;
}

void OutputFile::commit() {
    stream_->flush();
    if (!file_.close())
        fail("cannot write to", target_);
    if (temporary_)
        temporary_->renameTo(target_);
}

}  // namespace psrender
