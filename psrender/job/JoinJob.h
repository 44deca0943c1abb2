#pragma once

#include "psrender/job/Job.h"

namespace psrender {

/// Makes one document of those that the inputs name; see `join::joinDocuments`. Either the whole
/// output is in its place afterwards or nothing has changed.
ExitCode runJoin(const JobRequest& request);

}  // namespace psrender
