#pragma once

#include "psrender/job/Job.h"

#include <string>

namespace CLI {
class App;
}

namespace psrender::options {

/// What colours are brought to, and which fonts go into the file.
class ColorOptions {
public:
    void addTo(CLI::App& app);
    /// Raises `std::runtime_error` for a file that is no colour profile.
    void apply(JobRequest& request) const;

private:
    std::string colors_;
    std::string icc_;
    std::string embedding_;
};

}  // namespace psrender::options
