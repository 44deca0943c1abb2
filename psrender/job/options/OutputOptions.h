#pragma once

#include "psrender/job/Batch.h"

#include <optional>
#include <string>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace psrender::options {

/// What is read, where it goes and as what kind of file.
class OutputOptions {
public:
    void addTo(CLI::App& app);
    /// Settles what was left open: where a report is asked for, no document need be written. Throws
    /// `CLI::ParseError` for what does not go together.
    void complete(bool isReported);
    void apply(JobRequest& request) const;
    /// Where each input gets a file of its own; nothing if all go into one.
    [[nodiscard]] std::optional<Batch> batch() const;

private:
    CLI::Option* addFilesTo(CLI::App& app);
    void addBatchTo(CLI::App& app, CLI::Option* output);
    void choosePages();
    void chooseOutput(bool isReported);
    void chooseFormat();

    JobRequest chosen_;
    std::string format_;
    std::string pages_;
    Batch batch_;
};

}  // namespace psrender::options
