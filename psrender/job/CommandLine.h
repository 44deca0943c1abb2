#pragma once

#include "psrender/job/Job.h"

#include <variant>

namespace psrender {

/// What the arguments ask for: a job, or, where help or version was wanted or the arguments are
/// wrong, the exit code after everything has been said.
std::variant<JobRequest, ExitCode> parseCommandLine(int argc, char** argv);

}  // namespace psrender
