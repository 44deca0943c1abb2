#include "psrender/job/options/OutputOptions.h"

#include "psrender/job/options/Checks.h"
#include "psrender/job/options/Values.h"

#include <CLI/CLI.hpp>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <vector>

namespace psrender::options {

namespace {

constexpr const char* kNowhere = "/dev/null";

struct NamedFormat {
    std::string_view name;
    OutputFormat format;
};

constexpr std::array kFormats{NamedFormat{"ps", OutputFormat::ps},
                              NamedFormat{"eps", OutputFormat::eps},
                              NamedFormat{"pdf", OutputFormat::pdf}};

std::optional<OutputFormat> formatNamed(std::string_view name) {
    const auto* found = std::ranges::find(kFormats, name, &NamedFormat::name);
    return found == kFormats.end() ? std::nullopt : std::optional(found->format);
}

/// What is not there yet becomes a regular file.
mode_t modeOf(const std::string& name) {
    struct stat status {};
    return ::stat(name.c_str(), &status) == 0 ? status.st_mode : mode_t{S_IFREG};
}

bool isWithin(const std::vector<PageRange>& ranges, std::size_t page) {
    return std::ranges::any_of(ranges, [page](const PageRange& range) {
        return range.first <= page && page <= range.last;
    });
}

}  // namespace

void OutputOptions::addTo(CLI::App& app) {
    CLI::Option* output = addFilesTo(app);
    addBatchTo(app, output);
    app.add_flag("--join", chosen_.joins,
                 "the inputs are PostScript documents of psrender: parts that become one");
    app.add_option("--title", chosen_.title, "of the document")->option_text("TEXT");
    app.add_option("--author", chosen_.author, "of the document")->option_text("TEXT");
}

CLI::Option* OutputOptions::addFilesTo(CLI::App& app) {
    app.add_option(
           "IN", chosen_.inputs,
           "SVG drawings (.svg, .svgz), PNG, JPEG, GIF and WebP images; - is standard input")
        ->required()
        ->option_text("(at least one)");
    auto* output =
        app.add_option("-o,--output", chosen_.output,
                       "the file, of the kind that its suffix says: .ps, .eps or .pdf; - is "
                       "standard output, as without -o where that is no terminal")
            ->option_text("OUT.ps");
    app.add_option("-f,--format", format_, "the kind of file whatever its suffix")
        ->option_text("ps|eps|pdf")
        ->check(check(formatNamed, "ps, eps or pdf"));
    app.add_option("--pages", pages_, "only these of the inputs, counted from 1")
        ->option_text("2-5,8")
        ->check(check(parsePages, "pages such as 2-5,8"));
    return output;
}

void OutputOptions::addBatchTo(CLI::App& app, CLI::Option* output) {
    auto* folder = app.add_option("--output-dir", batch_.folder,
                                  "a file an input, of the same name, in this folder")
                       ->option_text("DIR")
                       ->excludes(output);
    app.add_option("--jobs", batch_.jobs, "programs at a time; default one a processor")
        ->option_text("N")
        ->check(CLI::Range(1U, 256U))
        ->needs(folder);
    app.add_flag("--skip-existing", batch_.skipExisting, "leave files that are there already")
        ->needs(folder);
}

void OutputOptions::complete(bool isReported) {
    choosePages();
    chooseOutput(isReported);
    chooseFormat();
    if (chosen_.joins && std::ranges::count(chosen_.inputs, "-") > 0)
        throw CLI::ValidationError("--join", "reads its parts twice; give files, not -");
    if (chosen_.joins && chosen_.format != OutputFormat::ps)
        throw CLI::ValidationError("--join", "makes PostScript; name the output .ps");
    if (std::ranges::count(chosen_.inputs, "-") > 1)
        throw CLI::ValidationError("IN", "standard input can be read once only");
}

void OutputOptions::choosePages() {
    if (pages_.empty())
        return;
    const std::vector<PageRange> ranges = *parsePages(pages_);
    std::vector<std::string> left;
    for (std::size_t i = 0; i < chosen_.inputs.size(); ++i)
        if (isWithin(ranges, i + 1))
            left.push_back(chosen_.inputs[i]);
    if (left.empty())
        throw CLI::ValidationError("--pages", "none of them is left; the inputs make " +
                                                  std::to_string(chosen_.inputs.size()) +
                                                  ", counted from 1");
    chosen_.inputs = left;
}

void OutputOptions::chooseOutput(bool isReported) {
    if (!batch_.folder.empty()) {
        if (isReported)
            throw CLI::ValidationError("--output-dir", "tells no --info; ask for it without");
        if (std::ranges::count(chosen_.inputs, "-") > 0)
            throw CLI::ValidationError("--output-dir", "needs inputs that have names");
        return;
    }
    if (!chosen_.output.empty())
        return;
    if (isReported) {
        chosen_.output = kNowhere;
        return;
    }
    if (::isatty(STDOUT_FILENO) == 1)
        throw CLI::RequiredError("-o OUT (standard output is a terminal)");
    chosen_.output = "-";
}

void OutputOptions::chooseFormat() {
    const std::string suffix = std::filesystem::path(chosen_.output).extension().string();
    if (!format_.empty())
        chosen_.format = *formatNamed(format_);
    else if (S_ISREG(modeOf(chosen_.output)) && !suffix.empty()) {
        const auto format = formatNamed(std::string_view(suffix).substr(1));
        if (!format)
            throw CLI::ValidationError("-o", "\"" + suffix +
                                                 "\" is no suffix of .ps, .eps and .pdf; name "
                                                 "the file so or give --format");
        chosen_.format = *format;
    }
    batch_.suffix = kFormats[static_cast<std::size_t>(chosen_.format)].name;
    if (chosen_.format == OutputFormat::eps && batch_.folder.empty() && chosen_.inputs.size() > 1)
        throw CLI::ValidationError("--format eps",
                                   "holds one page; give one drawing or --output-dir");
}

void OutputOptions::apply(JobRequest& request) const {
    request.joins = chosen_.joins;
    request.inputs = chosen_.inputs;
    request.output = chosen_.output;
    request.format = chosen_.format;
    request.title = chosen_.title;
    request.author = chosen_.author;
}

std::optional<Batch> OutputOptions::batch() const {
    return batch_.folder.empty() ? std::nullopt : std::optional(batch_);
}

}  // namespace psrender::options
