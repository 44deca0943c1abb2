#pragma once

#include "Core/SmartPtr.h"
#include "Core/Stream.h"

#include <filesystem>

namespace psrender {

/// A PostScript file in a folder of its own that is gone with this object.
class InterimFile {
public:
    /// Raises `Core::IOException`.
    InterimFile();
    InterimFile(const InterimFile&) = delete;
    InterimFile& operator=(const InterimFile&) = delete;
    ~InterimFile();

    [[nodiscard]] const Core::SmartPtr<Core::IO::Stream>& stream() const { return stream_; }
    [[nodiscard]] std::filesystem::path document() const { return folder_ / "document.ps"; }
    [[nodiscard]] std::filesystem::path pdf() const { return folder_ / "document.pdf"; }

private:
    std::filesystem::path folder_;
    Core::SmartPtr<Core::IO::Stream> stream_;
};

/// Turns the finished document of `file` into a PDF file with all its fonts in it. Raises
/// `std::runtime_error` where Ghostscript is missing or fails.
void writePdf(const InterimFile& file, const Core::SmartPtr<Core::IO::Stream>& output);

}  // namespace psrender
