#include "psrender/job/PdfFile.h"

#include "Core/Exception.h"
#include "Core/FileStream.h"
#include "psrender/job/Ghostscript.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace psrender {

namespace {

constexpr std::size_t kChunk = 65536;

std::filesystem::path makeFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "psrender-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr)
        throw Core::IOException("cannot make the folder", name, errno);
    return name;
}

void copy(const std::filesystem::path& file, Core::IO::Stream& output) {
    std::ifstream in(file, std::ios::binary);
    Core::ByteArray chunk(kChunk);
    while (in.read(reinterpret_cast<char*>(chunk.data()), kChunk), in.gcount() > 0)
        output.write(chunk, 0, static_cast<std::size_t>(in.gcount()));
    if (!in.eof())
        throw std::runtime_error("no PDF: what Ghostscript wrote could not be read");
}

}  // namespace

InterimFile::InterimFile()
    : folder_(makeFolder()),
      stream_(Core::makeObject<Core::IO::FileStream>(document().string(), true, true, true)) {}

InterimFile::~InterimFile() {
    stream_ = nullptr;
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

void writePdf(const InterimFile& file, const Core::SmartPtr<Core::IO::Stream>& output) {
    file.stream()->flush();
    const bool done =
        runGhostscript({"-sDEVICE=pdfwrite", "-dEmbedAllFonts=true", "-dAutoRotatePages=/None",
                        "-sOutputFile=" + file.pdf().string(), "-f", file.document().string()},
                       "no PDF", "choose --format ps");
    if (!done)
        throw std::runtime_error(
            "no PDF: Ghostscript could not read the document; "
            "choose --format ps");
    copy(file.pdf(), *output);
}

}  // namespace psrender
