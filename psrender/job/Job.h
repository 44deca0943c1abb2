#pragma once

#include "Print/PrintSettings.h"
#include "psrender/job/PageFrame.h"
#include "psrender/job/Report.h"
#include "psrender/plan/Planner.h"
#include "psrender/svg/SvgReader.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace psrender {

/// A limit for images that cameras and scanners keep to, and that files made to do harm do not.
inline constexpr std::uint64_t kMostPixels = 120'000'000;

/// What kind of file a job makes.
enum class OutputFormat : std::uint8_t {
    ps,
    eps,  ///< one page
    pdf,  ///< through Ghostscript
};

/// What is to be turned into pages, where they go, and how.
struct JobRequest {
    std::vector<std::string> inputs;  ///< "-" is standard input
    std::string output;               ///< "-" is standard output
    OutputFormat format = OutputFormat::ps;
    bool joins = false;  ///< the inputs are documents, which become one
    std::string title;   ///< of the document; none if empty
    std::string author;  ///< likewise
    Drawing::Print::PrintSettings settings;
    PageFrame frame;
    double mostDotsPerInch = 0;  ///< of images, which are reduced to it; 0 keeps every pixel
    std::uint64_t mostPixels = kMostPixels;  ///< of one image
    svg::ReadingLimits limits;               ///< of one drawing
    svg::ReadingWishes wishes;               ///< for drawings
    plan::OpacityWay opacity = plan::OpacityWay::blend;
    double rasterDotsPerInch = 300;  ///< of what cannot be said in vectors; 0 leaves that out
    std::optional<Drawing::Print::PrintingRequest> printing;
    std::optional<std::string> previewPrefix;
    int previewResolution = 96;            ///< dots per inch
    ReportForm report = ReportForm::none;  ///< of what the pages have, on standard output
    bool strict = false;                   ///< what was simplified is told by the exit code
    bool keepGoing = false;                ///< a bad page is skipped
    bool quiet = false;
    bool verbose = false;
};

/// What `main` returns.
enum ExitCode : int { success = 0, failure = 1, wrongUsage = 2, pagesSkipped = 3, simplified = 4 };

/// Makes the document: one page an input, in their order. Either the whole output is in its place
/// afterwards or nothing has changed. Messages go to standard error.
///
/// Raises `InputError` for a bad page unless `keepGoing`, and the library's exceptions for what
/// cannot be written.
ExitCode runJob(const JobRequest& request);

}  // namespace psrender
