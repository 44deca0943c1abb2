#include "psrender/job/Job.h"

#include "Core/Exception.h"
#include "Core/internal/Absence.h"
#include "Images/ImageError.h"
#include "Print/PrintDocument.h"
#include "psrender/base/InputError.h"
#include "psrender/base/Warnings.h"
#include "psrender/job/InputFile.h"
#include "psrender/job/Message.h"
#include "psrender/job/OutputFile.h"
#include "psrender/job/PageFacts.h"
#include "psrender/job/PageReader.h"
#include "psrender/job/PdfFile.h"
#include "psrender/job/Preview.h"
#include "psrender/job/Progress.h"
#include "psrender/paint/Painter.h"
#include "psrender/plan/Planner.h"
#include "psrender/scene/UnseenText.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace psrender {

namespace {

using Clock = std::chrono::steady_clock;

/// Nothing for what is not there.
std::optional<struct stat> statusOf(const std::string& name) {
    struct stat status {};
    if (::stat(name.c_str(), &status) == 0)
        return status;
    if (!Core::IO::isAbsence(errno))
        throw Core::IOException("cannot find out about", name, errno);
    return std::nullopt;
}

/// `a.svg -o a.svg` is a slip that would cost the drawing.
const std::string& outputOf(const JobRequest& request) {
    const auto output = statusOf(request.output);
    if (!output || !S_ISREG(output->st_mode))
        return request.output;
    for (const std::string& input : request.inputs)
        if (const auto status = statusOf(input);
            status && status->st_dev == output->st_dev && status->st_ino == output->st_ino)
            throw InputError({input},
                             "would be replaced by the output; choose another name for -o");
    return request.output;
}

class Job {
public:
    explicit Job(const JobRequest& request)
        : request_(request),
          output_(outputOf(request)),
          interim_(makesPdf(request) ? std::make_optional<InterimFile>() : std::nullopt),
          document_(Core::makeObject<Drawing::Print::PrintDocument>(
              interim_ ? interim_->stream() : output_.stream(), settingsOf(request))),
          reader_(request.mostPixels, request.limits, request.wishes),
          planner_({request.mostDotsPerInch, request.opacity, request.rasterDotsPerInch}),
          painter_(*document_),
          progress_(request.inputs.size(), !request.quiet && ::isatty(STDERR_FILENO) == 1) {}

    ExitCode run() {
        describeDocument();
        document_->startDocument();
        if (request_.printing)
            document_->requestPrinting(*request_.printing);
        for (const std::string& input : request_.inputs) {
            ++number_;
            addOrSkip(input);
        }
        if (pages_ == 0)
            throw std::runtime_error(
                "no page is left: every input was skipped, nothing is written");
        document_->endDocument();
        if (interim_)
            writePdf(*interim_, output_.stream());
        output_.commit();
        progress_.clear();
        writeReport();
        if (request_.previewPrefix)
            renderPreview(request_.output, *request_.previewPrefix, request_.previewResolution);
        if (skipped_)
            return pagesSkipped;
        return simplified_ && request_.strict ? simplified : success;
    }

private:
    static bool makesPdf(const JobRequest& request) { return request.format == OutputFormat::pdf; }

    static Drawing::Print::PrintSettings settingsOf(const JobRequest& request) {
        Drawing::Print::PrintSettings settings = request.settings;
        if (request.format == OutputFormat::eps)
            settings.form = Drawing::Print::FileForm::epsSheet;
        return settings;
    }

    void describeDocument() {
        if (!request_.title.empty())
            document_->setProperty(u"title", request_.title);
        if (!request_.author.empty())
            document_->setProperty(u"author", request_.author);
    }

    void addOrSkip(const std::string& input) {
        try {
            addPage(input);
            ++pages_;
        } catch (const InputError& error) {
            skip(error);
        } catch (const Images::ImageGone& error) {
            skip(error);
        }
        progress_.advance();
    }

    /// To be called while `error` is handled.
    void skip(const std::runtime_error& error) {
        if (!request_.keepGoing)
            throw;
        skipped_ = true;
        say(std::string(error.what()) + " (page skipped)");
    }

    /// Everything that can be wrong with an input is found before its page is begun.
    void addPage(const std::string& input) {
        const auto start = Clock::now();
        const std::string name = input == "-" ? kStandardInput : input;
        Warnings warnings;
        PageReader::Input read = reader_.read(input, warnings);
        scene::Page& page = read.page;
        try {
            frame(page, frameFor(read), warnings);
        } catch (const std::runtime_error& error) {
            throw InputError({name}, error.what());
        }
        scene::dropUnseenText(page, warnings);
        if (isReported())
            collector_.noteRead(page);
        page = planner_.plan(std::move(page), warnings);
        if (isReported())
            collector_.notePlanned(page);
        paint(name, page);
        report(name, page, warnings, Clock::now() - start);
    }

    /// A page that was begun cannot be skipped any more.
    void paint(const std::string& name, const scene::Page& page) {
        try {
            painter_.paintPage(page);
        } catch (const Images::ImageGone& error) {
            throw std::runtime_error(error.what());
        } catch (const InputError& error) {
            throw std::runtime_error(error.what());
        } catch (const Core::NumberRangeException& error) {
            throw std::runtime_error(name + ": " + error.getMessage());
        }
    }

    /// An image has no size that its author had in mind, so paper is to be filled with it.
    [[nodiscard]] PageFrame frameFor(const PageReader::Input& input) const {
        PageFrame result = request_.frame;
        result.fit = result.fit || (input.isPicture && result.paper);
        return result;
    }

    void report(const std::string& name, const scene::Page& page, const Warnings& warnings,
                Clock::duration time) {
        simplified_ = simplified_ || !warnings.empty();
        if (isReported())
            facts_.push_back(collector_.take(name, number_, warnings));
        else if (!request_.quiet)
            for (const Warnings::Kind& kind : warnings.kinds())
                warn(name, kind);
        if (request_.verbose)
            say(name + ": " + describe(page, time));
    }

    void warn(const std::string& name, const Warnings::Kind& kind) {
        Place place = kind.first;
        place.file = name;
        say("warning: " + messageAt(place, sentenceOf(kind)));
    }

    [[nodiscard]] bool isReported() const { return request_.report != ReportForm::none; }

    void writeReport() {
        if (!isReported())
            return;
        std::cout << reportOf(facts_, request_.report) << std::flush;
        if (!std::cout)
            throw std::runtime_error(std::string("cannot write to ") + kStandardOutput);
    }

    static std::string describe(const scene::Page& page, Clock::duration time) {
        char text[128];
        std::snprintf(text, sizeof text, "%.1f x %.1f pt, %zu shapes, %.1f ms", page.width,
                      page.height, page.items.size(),
                      std::chrono::duration<double, std::milli>(time).count());
        return text;
    }

    void say(const std::string& sentence) {
        progress_.clear();
        tell(sentence);
    }

    const JobRequest& request_;
    OutputFile output_;
    std::optional<InterimFile> interim_;  ///< the PostScript that a PDF is made of
    Core::SmartPtr<Drawing::Print::PrintDocument> document_;
    PageReader reader_;
    plan::Planner planner_;
    paint::Painter painter_;
    Progress progress_;
    FactCollector collector_{request_.settings.embedStandardFonts};
    std::vector<PageFacts> facts_;
    std::size_t number_ = 0;  ///< of the input that is read, from 1
    int pages_ = 0;
    bool skipped_ = false;
    bool simplified_ = false;
};

}  // namespace

ExitCode runJob(const JobRequest& request) {
    return Job(request).run();
}

}  // namespace psrender
