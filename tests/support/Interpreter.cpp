#include "tests/support/Interpreter.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

/// A folder under the system's temporary one that goes with its owner.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = (fs::temp_directory_path() / "psgraphics-test-XXXXXX").string();
        if (!::mkdtemp(name.data()))
            throw std::runtime_error("no scratch folder");
        path_ = name;
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    [[nodiscard]] fs::path file(const std::string& name) const { return path_ / name; }

private:
    fs::path path_;
};

std::string contentOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// A binary PPM: "P6 width height 255" and the pixels.
Picture readPicture(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    Picture picture;
    std::string word;
    int most = 0;
    in >> word;
    in >> std::ws;
    while (in.peek() == '#') {
        std::getline(in, word);
        in >> std::ws;
    }
    in >> picture.width >> picture.height >> most;
    in.get();
    picture.bytes.assign(std::istreambuf_iterator<char>(in), {});
    return picture;
}

}  // namespace

Picture::Pixel Picture::at(int x, int y) const {
    const auto offset = (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                         static_cast<std::size_t>(x)) *
                        3;
    return {bytes.at(offset), bytes.at(offset + 1), bytes.at(offset + 2)};
}

Interpretation interpret(std::string_view postScript, int dpi, const std::string& options) {
    const ScratchFolder folder;
    std::ofstream(folder.file("in.ps"), std::ios::binary) << postScript;
    std::ostringstream command;
    command << "gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r" << std::to_string(dpi)
            << " -sOutputFile=" << folder.file("%d.ppm") << " " << options << " -f "
            << folder.file("in.ps") << " > " << folder.file("messages") << " 2>&1";
    Interpretation result;
    result.exitCode = std::system(command.str().c_str());
    result.messages = contentOf(folder.file("messages"));
    for (int page = 1; fs::exists(folder.file(std::to_string(page) + ".ppm")); ++page)
        result.pages.push_back(readPicture(folder.file(std::to_string(page) + ".ppm")));
    return result;
}

std::string outputOf(const std::string& command, std::string_view input) {
    const ScratchFolder folder;
    std::ofstream(folder.file("in"), std::ios::binary) << input;
    const std::string line = "{ " + command + "; } < " + folder.file("in").string() + " > " +
                             folder.file("out").string() + " 2>&1";
    if (std::system(line.c_str()) != 0)
        throw std::runtime_error(command + ": " + contentOf(folder.file("out")));
    return contentOf(folder.file("out"));
}
