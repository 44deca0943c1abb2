#include "psrender/job/options/ReportOptions.h"

#include <CLI/CLI.hpp>

namespace psrender::options {

void ReportOptions::addTo(CLI::App& app) {
    app.add_option("--preview", preview_,
                   "render the pages to PREFIX-1.png, PREFIX-2.png ... with Ghostscript")
        ->option_text("PREFIX");
    app.add_option("--preview-dpi", chosen_.previewResolution,
                   "resolution of the preview; default 96")
        ->option_text("N")
        ->check(CLI::Range(1, 2400));
    auto* info = app.add_flag(
        "--info", isInfoAsked_,
        "tell what the pages have: sizes, fonts, pictures, what is simplified; writes no document "
        "without -o");
    app.add_flag("--json", isJsonAsked_, "the same as JSON")->excludes(info);
    app.add_flag("--strict", chosen_.strict, "exit code 4 if something was simplified");
    app.add_flag("--keep-going", chosen_.keepGoing, "skip a bad drawing, exit code 3");
    auto* quiet = app.add_flag("-q,--quiet", chosen_.quiet, "no warnings, no progress");
    app.add_flag("-v,--verbose", chosen_.verbose, "a line a page")->excludes(quiet);
}

void ReportOptions::apply(JobRequest& request) const {
    if (isInfoAsked_ || isJsonAsked_)
        request.report = isJsonAsked_ ? ReportForm::json : ReportForm::text;
    request.previewResolution = chosen_.previewResolution;
    request.strict = chosen_.strict;
    request.keepGoing = chosen_.keepGoing;
    request.quiet = chosen_.quiet;
    request.verbose = chosen_.verbose;
    if (!preview_.empty())
        request.previewPrefix = preview_;
}

void ReportOptions::check(const JobRequest& request) {
    if (request.report != ReportForm::none && request.output == "-")
        throw CLI::ValidationError("--info", "goes to standard output itself; name a file with -o");
    if (request.previewPrefix && (request.output == "-" || request.output == "/dev/null"))
        throw CLI::ValidationError("--preview", "needs a file to render: name one with -o");
}

}  // namespace psrender::options
