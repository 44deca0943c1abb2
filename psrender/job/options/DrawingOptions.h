#pragma once

#include "psrender/job/Job.h"

#include <string>

namespace CLI {
class App;
}

namespace psrender::options {

/// What of the drawings is shown, and how much they may ask for.
class DrawingOptions {
public:
    void addTo(CLI::App& app);
    /// Raises `InputError` where the style sheet cannot be read.
    void apply(JobRequest& request) const;

private:
    void addImagesTo(CLI::App& app);
    void addPixelsTo(CLI::App& app);
    void addLimitsTo(CLI::App& app);

    JobRequest chosen_;
    std::string styleSheet_;
    std::string languages_;
    std::string opacity_;
};

}  // namespace psrender::options
