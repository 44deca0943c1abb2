#pragma once

#include "Core/SmartPtr.h"
#include "Core/Stream.h"

#include <string>

namespace psrender {

/// The file that a job makes. It is written beside its target under another name and takes the
/// target's place by `commit`; until then, and if the job fails or is interrupted, a file that
/// stood there stays as it was. What is no regular file (a pipe, a device) and standard output
/// ("-") are written directly.
///
/// Raises `Core::IOException` where a file cannot be made, written or put in place.
class OutputFile {
public:
    explicit OutputFile(const std::string& name);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    [[nodiscard]] const Core::SmartPtr<Core::IO::Stream>& stream() const { return stream_; }
    /// Closes the stream and puts the file in its place; to be called once.
    void commit();

private:
    void openBeside();
    void discard() noexcept;

    std::string target_;
    std::string temporary_;  ///< empty if the target is written directly
    Core::SmartPtr<Core::IO::Stream> stream_;
};

}  // namespace psrender
