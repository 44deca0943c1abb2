#pragma once

#include "psrender/job/Job.h"

#include <string>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace psrender::options {

/// How large drawing and page are, and how the one lies on the other.
class PageOptions {
public:
    void addTo(CLI::App& app);
    void apply(JobRequest& request) const;

private:
    CLI::Option* addPaperTo(CLI::App& app);
    void addSizeTo(CLI::App& app);
    void addPlaceTo(CLI::App& app, CLI::Option* paper);

    PageFrame frame_;
    double zoom_ = 1;
    double dotsPerInch_ = 96;
    double verticalDotsPerInch_ = 0;  ///< 0 is as horizontally
    std::string paper_;
    std::string margin_;
    std::string width_;
    std::string height_;
    std::string pageWidth_;
    std::string pageHeight_;
    std::string left_;
    std::string top_;
    std::string background_;
};

}  // namespace psrender::options
