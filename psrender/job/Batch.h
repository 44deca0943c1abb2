#pragma once

#include "psrender/job/Job.h"

#include <string>

namespace psrender {

/// How each input becomes a file of its own.
struct Batch {
    std::string folder;         ///< of the outputs; it is made if it is not there
    std::string suffix = "ps";  ///< takes the place of the input's
    unsigned jobs = 0;          ///< at a time; 0 is one a processor
    bool skipExisting = false;  ///< a file that is there is as it should be
};

/// Runs a job an input, in processes that share the inputs out among themselves; one that crashes
/// costs its drawing alone. Whatever fails is summed up at the end. Raises `std::runtime_error`
/// where two inputs would get the same output or the folder cannot be made.
ExitCode runBatch(const JobRequest& request, const Batch& batch);

}  // namespace psrender
