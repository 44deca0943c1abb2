#include "psrender/job/CommandLine.h"

#include "psrender/job/InputFile.h"
#include "psrender/job/Message.h"
#include "psrender/job/options/Arguments.h"
#include "psrender/job/options/ColorOptions.h"
#include "psrender/job/options/DrawingOptions.h"
#include "psrender/job/options/OutputOptions.h"
#include "psrender/job/options/PageOptions.h"
#include "psrender/job/options/PrintingOptions.h"
#include "psrender/job/options/ReportOptions.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

namespace psrender {

namespace {

constexpr const char* kExamples = R"(Examples:
  psrender drawing.svg -o drawing.ps
      one page as large as the drawing
  psrender a.svg b.svg c.svg -o all.ps --paper A4 --fit --margin 15mm
      three A4 pages, each drawing as large as its page allows
  dot -Tsvg graph.dot | psrender - -o - | lp
      from a program to the printer
  psrender photo.jpg scan.png -o album.ps --paper A4 --margin 1cm
      images, each as large as its page allows
  psrender drawing.svg -o drawing.pdf
      PDF with its fonts in it, through Ghostscript
  psrender *.svg --output-dir out --format eps --jobs 2 --skip-existing
      a file a drawing
  psrender --join part-*.ps -o book.ps
      documents of psrender, made side by side, as one
  psrender *.svg -o book.ps --keep-going --preview book
      skips bad drawings and renders book-1.png, book-2.png ...

Pages are from 1 to 14400 points wide and high. With --paper, what does not fit
is cut off unless --fit is given.

Defaults are read from psrender.conf in the folder $XDG_CONFIG_HOME, else
~/.config: a line an option, such as "paper = A4"; PSRENDER_CONFIG names another
file. PSRENDER_OPTIONS holds options that come before it, and the command line
comes first.

Exit codes: 0 done, 1 failed and nothing written (but for a failed preview),
2 wrong command line, 3 done but drawings were skipped (--keep-going,
--output-dir), 4 done but something was simplified (--strict).)";

class Options {
public:
    Options()
        : app_(
              "Turns SVG drawings and images into one PostScript document, a page "
              "each.",
              "psrender") {
        app_.footer(kExamples);
        app_.option_defaults()->take_last();
        app_.set_help_flag("-?,--help", "print this and exit; so does -h without a length");
        app_.set_config("--config", options::settingsFile(), "a file of defaults, a line an option")
            ->option_text("FILE");
        app_.allow_config_extras(CLI::config_extras_mode::error);
        app_.set_version_flag("--version", "psrender " PSGRAPHICS_VERSION);
        output_.addTo(app_);
        color_.addTo(app_);
        page_.addTo(app_);
        drawing_.addTo(app_);
        printing_.addTo(app_);
        report_.addTo(app_);
    }

    Asked parse(int argc, char** argv) {
        std::vector<std::string> arguments = options::allArguments(argc, argv);
        std::ranges::reverse(arguments);
        app_.parse(arguments);
        JobRequest request;
        report_.apply(request);
        output_.complete(request.report != ReportForm::none);
        output_.apply(request);
        options::ReportOptions::check(request);
        color_.apply(request);
        page_.apply(request);
        drawing_.apply(request);
        printing_.apply(request);
        if (request.joins)
            options::requireOnlyForJoining(argc, argv);
        return {request, output_.batch()};
    }

    ExitCode explain(const CLI::ParseError& error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
            app_.exit(error);
            std::cout.flush();
            if (std::cout)
                return success;
            tell(std::string("cannot write to ") + kStandardOutput);
            return failure;
        }
        tell(error.what());
        tell("run with --help for more information");
        return wrongUsage;
    }

private:
    CLI::App app_;
    options::OutputOptions output_;
    options::ColorOptions color_;
    options::PageOptions page_;
    options::DrawingOptions drawing_;
    options::PrintingOptions printing_;
    options::ReportOptions report_;
};

}  // namespace

std::variant<Asked, ExitCode> parseCommandLine(int argc, char** argv) {
    Options options;
    try {
        return options.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return options.explain(error);
    }
}

}  // namespace psrender
