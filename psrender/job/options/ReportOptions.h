#pragma once

#include "psrender/job/Job.h"

#include <string>

namespace CLI {
class App;
}

namespace psrender::options {

/// What is told, shown and forgiven.
class ReportOptions {
public:
    void addTo(CLI::App& app);
    void apply(JobRequest& request) const;
    /// To be asked when `apply` has been called and the output is known. Throws
    /// `CLI::ParseError`.
    static void check(const JobRequest& request);

private:
    JobRequest chosen_;
    std::string preview_;
    bool isInfoAsked_ = false;
    bool isJsonAsked_ = false;
};

}  // namespace psrender::options
