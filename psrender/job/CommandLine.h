#pragma once

#include "psrender/job/Batch.h"
#include "psrender/job/Job.h"

#include <optional>
#include <variant>

namespace psrender {

/// A job, and where it is one for each input, how.
struct Asked {
    JobRequest request;
    std::optional<Batch> batch;
};

/// What the arguments ask for: a job, or, where help or version was wanted or the arguments are
/// wrong, the exit code after everything has been said.
std::variant<Asked, ExitCode> parseCommandLine(int argc, char** argv);

}  // namespace psrender
