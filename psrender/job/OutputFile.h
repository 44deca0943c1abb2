#pragma once

#include "Core/SmartPtr.h"
#include "Core/Stream.h"
#include "Core/internal/Descriptor.h"

#include <sys/types.h>

#include <optional>
#include <string>

namespace psrender {

/// The file that a job makes. It is written without a name, where the file system has such files,
/// else beside its target under another name, and takes the target's place by `commit`; until
/// then, and if the job fails or is stopped in whatever way, a file that stood there stays as it
/// was. What is no regular file (a pipe, a device) and standard output ("-") are written directly.
///
/// Raises `Core::IOException` where a file cannot be made, written or put in place, and for a
/// target that is write-protected.
class OutputFile {
public:
    explicit OutputFile(const std::string& name);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    [[nodiscard]] const Core::SmartPtr<Core::IO::Stream>& stream() const { return stream_; }
    /// Has everything stored, and puts the file in its place; to be called once.
    void commit();

private:
    /// A new file that is gone again unless it is renamed.
    class Temporary {
    public:
        /// In the folder of `target`, with the permissions `mode`.
        Temporary(const std::string& target, mode_t mode);
        Temporary(const Temporary&) = delete;
        Temporary& operator=(const Temporary&) = delete;
        ~Temporary();

        /// The file opened for writing; whoever takes it closes it.
        [[nodiscard]] int descriptor() const { return descriptor_; }
        /// Gives the file a name of its own beside `target` if it has none; to be called before it
        /// is closed.
        void giveName(const std::string& target);
        void renameTo(const std::string& target);

    private:
        std::string name_;  ///< empty for a file without one
        int descriptor_;
    };

    int open();

    std::string target_;
    std::optional<Temporary> temporary_;  ///< none if the target is written directly
    Core::IO::Descriptor file_;
    Core::SmartPtr<Core::IO::Stream> stream_;
};

}  // namespace psrender
