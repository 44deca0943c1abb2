#include "psrender/job/Ghostscript.h"

#include "psrender/job/ProcessState.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <stdexcept>

namespace psrender {

namespace {

/// A child meets the signals as any program does, whatever is ignored here.
class UsualSignals {
public:
    UsualSignals() {
        sigset_t signals{};
        sigemptyset(&signals);
        for (const int signal : kWriteSignals)
            sigaddset(&signals, signal);
        posix_spawnattr_init(&attributes_);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF);
    }
    UsualSignals(const UsualSignals&) = delete;
    UsualSignals& operator=(const UsualSignals&) = delete;
    ~UsualSignals() { posix_spawnattr_destroy(&attributes_); }
    [[nodiscard]] const posix_spawnattr_t* get() const { return &attributes_; }

private:
    posix_spawnattr_t attributes_{};
};

/// Sends what a child says to nowhere: the caller has a sentence of its own.
class Silence {
public:
    Silence() {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_adddup2(&actions_, STDOUT_FILENO, STDERR_FILENO);
    }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;
    ~Silence() { posix_spawn_file_actions_destroy(&actions_); }
    [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_{};
};

std::optional<int> runAndWait(std::vector<std::string> arguments) {
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    const Silence silence;
    const UsualSignals signals;
    pid_t child = 0;
    if (::posix_spawnp(&child, pointers[0], silence.get(), signals.get(), pointers.data(),
                       environ) != 0)
        return std::nullopt;
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

}  // namespace

bool runGhostscript(const std::vector<std::string>& arguments, const std::string& failure,
                    const std::string& remedy) {
    std::vector<std::string> all{"gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    const auto status = runAndWait(std::move(all));
    if (!status)
        throw std::runtime_error(failure + ": Ghostscript (gs) was not found; install it or " +
                                 remedy);
    return *status == 0;
}

}  // namespace psrender
