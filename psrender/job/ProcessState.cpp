#include "psrender/job/ProcessState.h"

#include <fcntl.h>
#include <unistd.h>

namespace psrender {

namespace {

/// A descriptor that is opened gets the lowest number that is free. Opened for the wrong direction
/// it refuses all use.
void holdOpen(int stream) {
    if (::fcntl(stream, F_GETFD) < 0)
        static_cast<void>(::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY));
}

}  // namespace

void prepareProcess() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        holdOpen(stream);
    for (const int signal : kWriteSignals)
        std::signal(signal, SIG_IGN);
}

}  // namespace psrender
