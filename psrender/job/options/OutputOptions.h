#pragma once

#include "psrender/job/Batch.h"

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace psrender::options {

/// What is read, where it goes and as what kind of file.
class OutputOptions {
public:
    void addTo(CLI::App& app);
    /// Settles what was left open. Throws `CLI::ParseError` for what does not go together.
    void complete();
    void apply(JobRequest& request) const;
    /// Where each input gets a file of its own; nothing if all go into one.
    [[nodiscard]] std::optional<Batch> batch() const;

private:
    void addFilesTo(CLI::App& app);
    void addBatchTo(CLI::App& app);
    void choosePages();
    void chooseOutput();
    void chooseFormat();

    JobRequest chosen_;
    std::string format_;
    std::string pages_;
    Batch batch_;
};

}  // namespace psrender::options
