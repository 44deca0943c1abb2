#include "psrender/job/CommandLine.h"

#include "psrender/job/InputFile.h"
#include "psrender/job/Message.h"
#include "psrender/job/ProfileConverter.h"
#include "psrender/svg/values/Color.h"

#include <CLI/CLI.hpp>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace psrender {

namespace {

constexpr double kPointsAnInch = 72;
constexpr double kUsualResolution = 96;
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
  psrender drawing.svg -o drawing.pdf
      PDF with its fonts in it, through Ghostscript
  psrender *.svg --output-dir out --format eps --jobs 2 --skip-existing
      a file a drawing
  psrender *.svg -o book.ps --keep-going --preview book
      skips bad drawings and renders book-1.png, book-2.png ...

Pages are from 1 to 14400 points wide and high. With --paper, what does not fit
is cut off unless --fit is given.

Defaults are read from psrender.conf in the folder $XDG_CONFIG_HOME, else
~/.config: a line an option, such as "paper = A4"; PSRENDER_CONFIG names another
file. The command line comes first.

Exit codes: 0 done, 1 failed and nothing written (but for a failed preview),
2 wrong command line, 3 done but drawings were skipped (--keep-going,
--output-dir), 4 done but something was simplified (--strict).)";

/// The printing options as they were given; any of them asks for a page device.
struct Printing {
    std::string duplex;
    int copies = 0;
    int tray = -1;
    int jog = -1;
    std::string mediaColor;

    [[nodiscard]] bool any() const {
        return !duplex.empty() || copies > 0 || tray >= 0 || jog >= 0 || !mediaColor.empty();
    }
};

/// What was not asked for is left to the printer.
Drawing::Print::PrintingRequest requestOf(const Printing& printing) {
    Drawing::Print::PrintingRequest request;
    if (!printing.duplex.empty())
        request.duplex = printing.duplex != "off";
    if (printing.duplex == "short")
        request.duplexEdge = Drawing::Print::DuplexEdge::shortEdge;
    if (printing.copies > 0)
        request.copies = printing.copies;
    if (printing.jog >= 0)
        request.jog = printing.jog;
    if (printing.tray >= 0)
        request.mediaPosition = printing.tray;
    if (!printing.mediaColor.empty())
        request.mediaColor = printing.mediaColor;
    return request;
}

std::optional<plan::OpacityWay> opacityNamed(const std::string& name) {
    if (name == "blend")
        return plan::OpacityWay::blend;
    if (name == "white")
        return plan::OpacityWay::white;
    return std::nullopt;
}

/// A length with a unit, or in pixels of `dotsPerInch` without one or with "px".
std::optional<double> parsePixels(std::string_view text, double dotsPerInch) {
    if (const auto length = parseLength(text))
        return length;
    if (text.ends_with("px"))
        text.remove_suffix(2);
    const auto points = parseLength(std::string(text) + "pt");
    return points ? std::optional(*points * kPointsAnInch / dotsPerInch) : std::nullopt;
}

bool isSide(const std::string& text) {
    const auto length = parsePixels(text, kUsualResolution);
    return length && *length > 0;
}

/// One to four lengths: all sides, or as CSS has them, from the top clockwise.
std::optional<Margins> parseMargins(const std::string& text) {
    std::vector<double> sides;
    std::istringstream in(text);
    for (std::string side; std::getline(in, side, ',');) {
        const auto length = parseLength(side);
        if (!length || *length < 0)
            return std::nullopt;
        sides.push_back(*length);
    }
    if (sides.empty() || sides.size() > 4)
        return std::nullopt;
    const auto side = [&](std::size_t index, std::size_t opposite) {
        return index < sides.size() ? sides[index] : sides[std::min(opposite, sides.size() - 1)];
    };
    return Margins{sides[0], side(1, 0), side(2, 0), side(3, 1)};
}

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

std::optional<Drawing::ColorSpaceType> colorsNamed(const std::string& name) {
    if (name == "rgb")
        return Drawing::ColorSpaceType::rgb;
    if (name == "gray")
        return Drawing::ColorSpaceType::gray;
    if (name == "cmyk")
        return Drawing::ColorSpaceType::cmyk;
    return std::nullopt;
}

std::optional<scene::Color> parseBackground(const std::string& text) {
    const auto color = svg::parseColor(text);
    return color && color->alpha == 1 ? std::optional(color->color) : std::nullopt;
}

/// Where a user's defaults stand; empty where there are none.
std::string settingsFile() {
    const auto variable = [](const char* name) {
        const char* value = ::secure_getenv(name);
        return std::filesystem::path(value == nullptr ? "" : value);
    };
    if (const auto named = variable("PSRENDER_CONFIG"); !named.empty())
        return named;
    auto folder = variable("XDG_CONFIG_HOME");
    if (folder.empty() && !variable("HOME").empty())
        folder = variable("HOME") / ".config";
    return folder.empty() ? "" : folder / "psrender.conf";
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
        app_.set_config("--config", settingsFile(), "a file of defaults, a line an option")
            ->option_text("FILE");
        app_.allow_config_extras(CLI::config_extras_mode::error);
        app_.set_version_flag("--version", "psrender " PSGRAPHICS_VERSION);
        addFiles();
        addPage();
        addImages();
        addPixels();
        addPrinting();
        addRest();
    }

    void parse(int argc, char** argv) {
        app_.parse(argc, argv);
        chooseOutput();
        chooseFormat();
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
            request_.frame.margins = *parseMargins(margin_);
        else if (request_.frame.fit)
            request_.frame.margins = {kFitMargin, kFitMargin, kFitMargin, kFitMargin};
        if (!width_.empty())
            request_.frame.width = parsePixels(width_, dotsPerInch_);
        if (!height_.empty())
            request_.frame.height = parsePixels(height_, dotsPerInch_);
        if (!background_.empty())
            request_.frame.background = parseBackground(background_);
        if (!icc_.empty())
            request_.settings.colors = converterTo(icc_);
        else if (!colors_.empty())
            request_.settings.colors = Drawing::Print::ColorConverter::plain(*colorsNamed(colors_));
        request_.settings.embedStandardFonts = embedding_ == "all";
        if (!opacity_.empty())
            request_.opacity = *opacityNamed(opacity_);
        if (printing_.any())
            request_.printing = requestOf(printing_);
        if (!preview_.empty())
            request_.previewPrefix = preview_;
        return request_;
    }

    /// Where each input gets a file of its own; nothing if all go into one.
    [[nodiscard]] std::optional<Batch> batch() const {
        return batch_.folder.empty() ? std::nullopt : std::optional(batch_);
    }

private:
    void chooseOutput() {
        if (!batch_.folder.empty()) {
            if (std::ranges::count(request_.inputs, "-") > 0)
                throw CLI::ValidationError("--output-dir", "needs inputs that have names");
            return;
        }
        if (!request_.output.empty())
            return;
        if (::isatty(STDOUT_FILENO) == 1)
            throw CLI::RequiredError("-o OUT (standard output is a terminal)");
        request_.output = "-";
    }

    void chooseFormat() {
        const std::string suffix = std::filesystem::path(request_.output).extension().string();
        if (!format_.empty())
            request_.format = *formatNamed(format_);
        else if (S_ISREG(modeOf(request_.output)) && !suffix.empty()) {
            const auto format = formatNamed(std::string_view(suffix).substr(1));
            if (!format)
                throw CLI::ValidationError(
                    "-o", "\"" + suffix +
                              "\" is no suffix of .ps, .eps and .pdf; name the file "
                              "so or give --format");
            request_.format = *format;
        }
        batch_.suffix = kFormats[static_cast<std::size_t>(request_.format)].name;
        if (request_.format == OutputFormat::eps && batch_.folder.empty() &&
            request_.inputs.size() > 1)
            throw CLI::ValidationError("--format eps",
                                       "holds one page; give one drawing or --output-dir");
    }

    /// What is not there yet becomes a regular file.
    static mode_t modeOf(const std::string& name) {
        struct stat status {};
        return ::stat(name.c_str(), &status) == 0 ? status.st_mode : mode_t{S_IFREG};
    }

    void addFiles() {
        app_.add_option("IN", request_.inputs,
                        "SVG drawings (.svg, .svgz), PNG and JPEG images; - is standard input")
            ->required()
            ->option_text("(at least one)");
        app_.add_option("-o,--output", request_.output,
                        "the file, of the kind that its suffix says: .ps, .eps or .pdf; - is "
                        "standard output, as without -o where that is no terminal")
            ->option_text("OUT.ps");
        app_.add_option("-f,--format", format_, "the kind of file whatever its suffix")
            ->option_text("ps|eps|pdf")
            ->check(check(formatNamed, "ps, eps or pdf"));
        auto* folder = app_.add_option("--output-dir", batch_.folder,
                                       "a file an input, of the same name, in this folder")
                           ->option_text("DIR")
                           ->excludes("--output");
        app_.add_option("--jobs", batch_.jobs, "programs at a time; default one a processor")
            ->option_text("N")
            ->check(CLI::Range(1U, 256U))
            ->needs(folder);
        app_.add_flag("--skip-existing", batch_.skipExisting, "leave files that are there already")
            ->needs(folder);
        app_.add_option("--title", request_.title, "of the document")->option_text("TEXT");
        app_.add_option("--author", request_.author, "of the document")->option_text("TEXT");
        app_.add_option("--embed-fonts", embedding_,
                        "all: the 14 standard fonts, too, for archives; subset (the default): the "
                        "others only")
            ->option_text("all|subset")
            ->check(CLI::IsMember({"all", "subset"}));
        auto* colors = app_.add_option("--colors", colors_, "bring all colours to one space")
                           ->option_text("rgb|gray|cmyk")
                           ->check(check(colorsNamed, "rgb, gray or cmyk"));
        app_.add_option("--icc", icc_, "bring all colours to the device of a colour profile")
            ->option_text("FILE")
            ->excludes(colors);
    }

    void addPage() {
        auto* paper =
            app_.add_option(
                    "--paper", paper_,
                    "A0 to A10, B0 to B10, Letter, Legal, Tabloid, Ledger, Executive, Statement, "
                    "Folio, ANSI-C to -E, Arch-A to -E, -landscape behind it turns it, or "
                    "WxH with mm, cm, in or pt; without it "
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
        app_.add_option("--margin", margin_,
                        "on all sides, or TOP,RIGHT,BOTTOM,LEFT, with units; default 10mm with "
                        "--fit, else 0; without --paper "
                        "the page grows by it")
            ->option_text("LENGTH")
            ->check(check(parseMargins, "a length such as 10mm or 0.5in, or four of them"))
            ->group("Page");
        const auto side = check(isSide, "a length such as 640, 640px, 10cm or 4in");
        app_.add_option("-w,--width", width_, "of the drawing; in proportion if given alone")
            ->option_text("LENGTH")
            ->check(side)
            ->group("Page");
        app_.add_option("--height", height_, "of the drawing; in proportion if given alone")
            ->option_text("LENGTH")
            ->check(side)
            ->group("Page");
        app_.add_flag("-a,--keep-aspect-ratio", request_.frame.keepProportions,
                      "with both --width and --height, as large as fits in them")
            ->group("Page");
        app_.add_option("--scale", request_.frame.scale, "of the drawing; default 1")
            ->option_text("N")
            ->check(CLI::Range(1e-4, 1e4))
            ->group("Page");
        app_.add_option("--dpi", dotsPerInch_, "pixels an inch of --width and --height; default 96")
            ->option_text("N")
            ->check(CLI::Range(1.0, 100'000.0))
            ->group("Page");
        app_.add_option("--background", background_,
                        "an opaque colour as in CSS, under the drawing")
            ->option_text("COLOR")
            ->check(check(parseBackground, "an opaque colour such as white or #ffcc00"))
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

    void addPixels() {
        auto* resolution =
            app_.add_option("--raster-dpi", request_.rasterDotsPerInch,
                            "resolution of what only pixels can show, such as filters; default 300")
                ->option_text("N")
                ->check(CLI::Range(1.0, 2400.0))
                ->group("Images");
        app_.add_flag_callback(
                "--no-raster", [this] { request_.rasterDotsPerInch = 0; },
                "leave out what only pixels can show, with a warning")
            ->excludes(resolution)
            ->group("Images");
    }

    void addPrinting() {
        app_.add_option("--duplex", printing_.duplex,
                        "print on both sides, turned by the long or the short edge, or on one")
            ->option_text("long|short|off")
            ->check(CLI::IsMember({"long", "short", "off"}))
            ->group("Printing");
        app_.add_option("--copies", printing_.copies, "number of copies")
            ->option_text("N")
            ->check(CLI::Range(1, kMostCopies))
            ->group("Printing");
        app_.add_option("--tray", printing_.tray, "media position")
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
        app_.add_flag("--strict", request_.strict, "exit code 4 if something was simplified");
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
    std::string width_;
    std::string height_;
    double dotsPerInch_ = kUsualResolution;
    std::string background_;
    std::string format_;
    std::string colors_;
    std::string icc_;
    std::string embedding_;
    Batch batch_;
};

}  // namespace

std::variant<Asked, ExitCode> parseCommandLine(int argc, char** argv) {
    Options options;
    try {
        options.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return options.explain(error);
    }
    return Asked{options.request(), options.batch()};
}

}  // namespace psrender
