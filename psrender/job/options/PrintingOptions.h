#pragma once

#include "psrender/job/Job.h"

#include <string>

namespace CLI {
class App;
}

namespace psrender::options {

/// What is asked of the printer; only what was given is written.
class PrintingOptions {
public:
    void addTo(CLI::App& app);
    void apply(JobRequest& request) const;

private:
    [[nodiscard]] bool isAnyGiven() const;

    std::string duplex_;
    int copies_ = 0;
    int tray_ = -1;
    int jog_ = -1;
    std::string mediaColor_;
};

}  // namespace psrender::options
