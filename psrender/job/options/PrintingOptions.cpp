#include "psrender/job/options/PrintingOptions.h"

#include <CLI/CLI.hpp>

namespace psrender::options {

namespace {
constexpr int kMostCopies = 9999;
constexpr const char* kGroup = "Printing";
}  // namespace

void PrintingOptions::addTo(CLI::App& app) {
    app.add_option("--duplex", duplex_,
                   "print on both sides, turned by the long or the short edge, or on one")
        ->option_text("long|short|off")
        ->check(CLI::IsMember({"long", "short", "off"}))
        ->group(kGroup);
    app.add_option("--copies", copies_, "number of copies")
        ->option_text("N")
        ->check(CLI::Range(1, kMostCopies))
        ->group(kGroup);
    app.add_option("--tray", tray_, "media position")
        ->option_text("N")
        ->check(CLI::Range(0, 255))
        ->group(kGroup);
    app.add_option("--media-color", mediaColor_, "colour of the paper, by name")
        ->option_text("NAME")
        ->group(kGroup);
    app.add_option("--jog", jog_,
                   "shift the stack: 0 never, 1 after the document, 2 after each copy, 3 after "
                   "each set")
        ->option_text("N")
        ->check(CLI::Range(0, 3))
        ->group(kGroup);
}

bool PrintingOptions::isAnyGiven() const {
    return !duplex_.empty() || copies_ > 0 || tray_ >= 0 || jog_ >= 0 || !mediaColor_.empty();
}

void PrintingOptions::apply(JobRequest& request) const {
    if (!isAnyGiven())
        return;
    Drawing::Print::PrintingRequest& printing = request.printing.emplace();
    if (!duplex_.empty())
        printing.duplex = duplex_ != "off";
    if (duplex_ == "short")
        printing.duplexEdge = Drawing::Print::DuplexEdge::shortEdge;
    if (copies_ > 0)
        printing.copies = copies_;
    if (jog_ >= 0)
        printing.jog = jog_;
    if (tray_ >= 0)
        printing.mediaPosition = tray_;
    if (!mediaColor_.empty())
        printing.mediaColor = mediaColor_;
}

}  // namespace psrender::options
