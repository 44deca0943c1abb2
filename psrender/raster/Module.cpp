#include "psrender/raster/Module.h"

#include <dlfcn.h>

#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

namespace psrender::raster {

namespace {

namespace fs = std::filesystem;

constexpr const char* kModuleName = "psrender-raster.so";

std::vector<fs::path>& addedFolders() {
    static std::vector<fs::path> folders;
    return folders;
}

/// In the build tree the module lies beside the program, and below a folder for libraries once it
/// is installed.
std::vector<fs::path> foldersToSearch() {
    std::vector<fs::path> folders = addedFolders();
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    if (!error) {
        folders.push_back(program.parent_path());
        folders.push_back(program.parent_path() / PSRENDER_MODULES_FROM_PROGRAM);
    }
    folders.emplace_back(PSRENDER_MODULES);
    return folders;
}

Factory findFactory() {
    for (const fs::path& folder : foldersToSearch()) {
        const fs::path file = folder / kModuleName;
        std::error_code error;
        if (!fs::is_regular_file(file, error))
            continue;
        if (void* const module = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL))
            // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): as POSIX has it.
            return reinterpret_cast<Factory>(::dlsym(module, kFactoryName));
    }
    return nullptr;
}

}  // namespace

void lookInFolder(std::string folder) {
    addedFolders().emplace_back(std::move(folder));
}

Rasterizer* loadRasterizer(TextOutlines outlines) {
    static const std::unique_ptr<Rasterizer> rasterizer = [&]() -> std::unique_ptr<Rasterizer> {
        const Factory factory = findFactory();
        return std::unique_ptr<Rasterizer>(factory != nullptr ? factory(outlines) : nullptr);
    }();
    return rasterizer.get();
}

}  // namespace psrender::raster
