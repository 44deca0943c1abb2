#include "psrender/job/OutputFile.h"

#include "Core/Exception.h"
#include "Core/FileStream.h"
#include "Core/internal/Absence.h"
#include "psrender/base/InputError.h"
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
#include <random>

namespace psrender {

namespace {

using Core::IO::FileStream;

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP, SIGQUIT};
constexpr const char* kOpenFiles = "/proc/self/fd/";

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

[[noreturn]] void fail(const std::string& action, const std::string& name) {
    throw Core::IOException(action, name, errno);
}

/// What a symbolic link leads to, so that the link stays a link.
std::string resolved(const std::string& name) {
    std::array<char, PATH_MAX> path{};
    if (::realpath(name.c_str(), path.data()) != nullptr)
        return path.data();
    if (!Core::IO::isAbsence(errno))
        fail("cannot write to", name);
    return name;
}

/// The permissions of a file that anyone makes.
mode_t usualMode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

std::string folderOf(const std::string& name) {
    const auto slash = name.rfind('/');
    return slash == std::string::npos ? "" : name.substr(0, slash + 1);
}

constexpr mode_t kPermissions = 07777;
constexpr const char* kHiddenName = ".psrender-";

/// A file that is gone when it is closed unless it gets a name; negative where there are none, or
/// no way to name them.
int openNameless(const std::string& target) {
    if (::access(kOpenFiles, X_OK) != 0)
        return -1;
    return ::open((folderOf(target) + ".").c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC,
                  S_IRUSR | S_IWUSR);
}

/// Root may write what is protected, but whoever took all rights to write meant it.
void requireWritable(const struct stat& status, const std::string& target) {
    constexpr mode_t kAnyoneWrites = S_IWUSR | S_IWGRP | S_IWOTH;
    if ((status.st_mode & kAnyoneWrites) == 0 || ::access(target.c_str(), W_OK) != 0)
        throw InputError({target},
                         "is write-protected; make it writable or choose another name for -o");
}

/// Some file systems cannot be told to store a file and do it anyway.
bool store(int descriptor) {
    return ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP;
}

}  // namespace

OutputFile::Temporary::Temporary(const std::string& target, mode_t mode)
    : descriptor_(openNameless(target)) {
    if (descriptor_ < 0) {
        name_ = folderOf(target) + kHiddenName + "XXXXXX";
        descriptor_ = ::mkostemp(name_.data(), O_CLOEXEC);
        if (descriptor_ < 0)
            fail("cannot make a file in the folder of", target);
        removeWhenInterrupted(name_);
    }
    // A file system without permissions has none to lose.
    static_cast<void>(::fchmod(descriptor_, mode));
}

OutputFile::Temporary::~Temporary() {
    if (!name_.empty())
        ::unlink(name_.c_str());
    removeWhenInterrupted("");
}

/// So many random bits name no other file.
void OutputFile::Temporary::giveName(const std::string& target) {
    if (!name_.empty())
        return;
    std::random_device random;
    const std::string name =
        folderOf(target) + kHiddenName + std::to_string(random()) + "-" + std::to_string(random());
    const std::string self = kOpenFiles + std::to_string(descriptor_);
    removeWhenInterrupted(name);
    if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0)
        fail("cannot make a file in the folder of", target);
    name_ = name;
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
    if (target_ == "-") {
        if ((::fcntl(STDOUT_FILENO, F_GETFL) & O_ACCMODE) == O_RDONLY)
            throw Core::IOException("cannot write to", kStandardOutput, EBADF);
        return STDOUT_FILENO;
    }
    struct stat status {};
    if (::stat(target_.c_str(), &status) != 0) {
        if (!Core::IO::isAbsence(errno))
            fail("cannot write to", target_);
        return temporary_.emplace(target_, usualMode()).descriptor();
    }
    if (S_ISREG(status.st_mode)) {
        requireWritable(status, target_);
        return temporary_.emplace(target_, status.st_mode & kPermissions).descriptor();
    }
    const int descriptor = ::open(target_.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0)
        fail("cannot write to", target_);
    return descriptor;
}

void OutputFile::commit() {
    stream_->flush();
    if (temporary_) {
        if (!store(file_.number()))
            fail("cannot write to", target_);
        temporary_->giveName(target_);
    }
    if (!file_.close())
        fail("cannot write to", target_);
    if (temporary_)
        temporary_->renameTo(target_);
}

}  // namespace psrender
