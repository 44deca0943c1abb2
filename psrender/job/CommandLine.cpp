#include "psrender/job/CommandLine.h"

#include "psrender/job/InputFile.h"
#include "psrender/job/Message.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <iostream>
#include <optional>
#include <string>

namespace psrender {

namespace {

constexpr double kFitMargin = 28.35;  // points: 10 mm
constexpr int kMostCopies = 9999;

constexpr const char* kExamples = R"(Examples:
  psrender drawing.svg -o drawing.ps
      one page as large as the drawing
  psrender a.svg b.svg c.svg -o all.ps --paper A4 --fit --margin 15mm
      three A4 pages, each drawing as large as its page allows
  dot -Tsvg graph.dot | psrender - -o - | lp
      from a program to the printer
  psrender photo.jpg scan.png -o album.ps --paper A4 --margin 1cm
      images, each as large as its page allows
  psrender *.svg -o book.ps --keep-going --preview book
      skips bad drawings and renders book-1.png, book-2.png ...

Pages are from 1 to 14400 points wide and high. With --paper, what does not fit
is cut off unless --fit is given.

Exit codes: 0 done, 1 failed and nothing written (but for a failed preview),
2 wrong command line, 3 done but pages were skipped (--keep-going).)";

/// The printing options as they were given; any of them asks for a page device.
struct Printing {
    bool duplex = false;
    int copies = 0;
    int tray = -1;
    int jog = -1;
    std::string mediaColor;

    [[nodiscard]] bool any() const {
        return duplex || copies > 0 || tray >= 0 || jog >= 0 || !mediaColor.empty();
    }
};

/// The text as a PostScript string; what is special in one is written in octal.
std::string postScriptString(const std::string& text) {
    std::string result = "(";
    for (const char c : text) {
        const bool plain = c >= ' ' && c < 127 && c != '(' && c != ')' && c != '\\';
        std::array<char, 5> octal{};
        std::snprintf(octal.data(), octal.size(), "\\%03o", static_cast<unsigned char>(c));
        result += plain ? std::string(1, c) : octal.data();
    }
    return result + ")";
}

Drawing::PS::PSPrintingOptions optionsOf(const Printing& printing) {
    Drawing::PS::PSPrintingOptions options;
    options.Duplex = printing.duplex;
    options.NumCopies = std::max(1, printing.copies);
    options.Jog = std::max(0, printing.jog);
    if (printing.tray >= 0)
        options.MediaPosition = printing.tray;
    if (!printing.mediaColor.empty())
        options.MediaColor = postScriptString(printing.mediaColor);
    return options;
}

std::optional<plan::OpacityWay> opacityNamed(const std::string& name) {
    if (name == "blend")
        return plan::OpacityWay::blend;
    if (name == "white")
        return plan::OpacityWay::white;
    return std::nullopt;
}

/// A check for CLI11: empty if `parse` understands the text, else what was wrong.
template <class Parse>
std::function<std::string(const std::string&)> check(Parse parse, const char* wanted) {
    return [parse, wanted](const std::string& text) {
        return parse(text) ? std::string() : "\"" + text + "\" is not " + wanted;
    };
}

class Options {
public:
    Options()
        : app_(
              "Turns SVG drawings, PNG and JPEG images into one PostScript document, a page "
              "each.",
              "psrender") {
        app_.footer(kExamples);
        app_.set_version_flag("--version", "psrender " PSGRAPHICS_VERSION);
        addFiles();
        addPage();
        addImages();
        addPrinting();
        addRest();
    }

    void parse(int argc, char** argv) {
        app_.parse(argc, argv);
        if (!preview_.empty() && request_.output == "-")
            throw CLI::ValidationError("--preview", "needs a file to render: name one with -o");
        if (std::ranges::count(request_.inputs, "-") > 1)
            throw CLI::ValidationError("IN", "standard input can be read once only");
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

    JobRequest request() {
        if (!paper_.empty())
            request_.frame.paper = parsePaper(paper_);
        if (!margin_.empty())
            request_.frame.margin = *parseLength(margin_);
        else if (request_.frame.fit)
            request_.frame.margin = kFitMargin;
        if (!opacity_.empty())
            request_.opacity = *opacityNamed(opacity_);
        if (printing_.any())
            request_.printing = optionsOf(printing_);
        if (!preview_.empty())
            request_.previewPrefix = preview_;
        return request_;
    }

private:
    void addFiles() {
        app_.add_option("IN", request_.inputs,
                        "SVG drawings (.svg, .svgz), PNG and JPEG images; - is standard input")
            ->required()
            ->option_text("(at least one)");
        app_.add_option("-o,--output", request_.output, "the PostScript file; - is standard output")
            ->required()
            ->option_text("OUT.ps");
    }

    void addPage() {
        auto* paper =
            app_.add_option("--paper", paper_,
                            "A3, A4, A5, Letter, Legal or WxH with mm, cm, in or pt; without it "
                            "each page is as large as its drawing")
                ->option_text("SIZE")
                ->check(check(parsePaper, "a paper size such as A4 or 210x297mm"))
                ->group("Page");
        app_.add_flag("--fit", request_.frame.fit,
                      "scale each drawing to the paper less the margin, else it is centred in its "
                      "own size")
            ->needs(paper)
            ->group("Page");
        app_.add_flag("--landscape", request_.frame.landscape, "turn the paper")
            ->needs(paper)
            ->group("Page");
        app_.add_option(
                "--margin", margin_,
                "on all sides, with a unit; default 10mm with --fit, else 0; without --paper "
                "the page grows by it")
            ->option_text("LENGTH")
            ->check(check(
                [](const std::string& text) {
                    const auto length = parseLength(text);
                    return length && *length >= 0;
                },
                "a length such as 10mm or 0.5in"))
            ->group("Page");
    }

    void addImages() {
        app_.add_option("--max-dpi", request_.mostDotsPerInch,
                        "reduce images that have more dots per inch on the page")
            ->option_text("N")
            ->check(CLI::Range(1.0, 100'000.0))
            ->group("Images");
        app_.add_option("--max-pixels", request_.mostPixels,
                        "refuse images with more; default " + std::to_string(request_.mostPixels))
            ->option_text("N")
            ->check(CLI::Range(std::uint64_t{1}, std::uint64_t{1} << 40))
            ->group("Images");
    }

    void addPrinting() {
        app_.add_flag("--duplex", printing_.duplex, "print on both sides")->group("Printing");
        app_.add_option("--copies", printing_.copies, "number of copies")
            ->option_text("N")
            ->check(CLI::Range(1, kMostCopies))
            ->group("Printing");
        app_.add_option("--tray", printing_.tray, "media position; 1 if only others are given")
            ->option_text("N")
            ->check(CLI::Range(0, 255))
            ->group("Printing");
        app_.add_option("--media-color", printing_.mediaColor, "colour of the paper, by name")
            ->option_text("NAME")
            ->group("Printing");
        app_.add_option("--jog", printing_.jog,
                        "shift the stack: 0 never, 1 after the document, 2 after each copy, 3 "
                        "after each set")
            ->option_text("N")
            ->check(CLI::Range(0, 3))
            ->group("Printing");
    }

    void addRest() {
        app_.add_option("--preview", preview_,
                        "render the pages to PREFIX-1.png, PREFIX-2.png ... with Ghostscript")
            ->option_text("PREFIX");
        app_.add_option("--preview-dpi", request_.previewResolution,
                        "resolution of the preview; default 96")
            ->option_text("N")
            ->check(CLI::Range(1, 2400));
        app_.add_option("--max-shapes", request_.limits.shapes,
                        "refuse drawings with more shapes or twice as many elements; default " +
                            std::to_string(request_.limits.shapes))
            ->option_text("N")
            ->check(CLI::Range(std::size_t{1}, std::size_t{1} << 32));
        app_.add_flag("--keep-going", request_.keepGoing, "skip a bad drawing, exit code 3");
        app_.add_option("--opacity", opacity_,
                        "blend (the default): translucent shapes show what is beneath; white: they "
                        "are blended with white paper, which makes smaller files")
            ->option_text("blend|white")
            ->check(check(opacityNamed, "blend or white"));
        auto* quiet = app_.add_flag("-q,--quiet", request_.quiet, "no warnings, no progress");
        app_.add_flag("-v,--verbose", request_.verbose, "a line a page")->excludes(quiet);
    }

    CLI::App app_;
    JobRequest request_;
    Printing printing_;
    std::string paper_;
    std::string margin_;
    std::string preview_;
    std::string opacity_;
};

}  // namespace

std::variant<JobRequest, ExitCode> parseCommandLine(int argc, char** argv) {
    Options options;
    try {
        options.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return options.explain(error);
    }
    return options.request();
}

}  // namespace psrender
