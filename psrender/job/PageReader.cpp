#include "psrender/job/PageReader.h"

#include "Images/ImageError.h"
#include "Images/ImageFormat.h"
#include "psrender/base/InputError.h"
#include "psrender/job/InputFile.h"
#include "psrender/job/PicturePage.h"
#include "psrender/svg/SvgReader.h"

#include <filesystem>

namespace psrender {

using Images::ImageFormat;

namespace {

std::string folderOf(const std::string& file) {
    const std::string folder = std::filesystem::path(file).parent_path().string();
    return folder.empty() ? "." : folder;
}

template <class Open>
PageReader::Input readPicture(const std::string& name, Warnings& warnings, Open open) {
    try {
        return {pageOf(open(), warnings), true};
    } catch (const Images::ImageError& error) {
        throw InputError({name}, error.what());
    } catch (const Images::ImageLost& error) {
        throw InputError({name}, error.what());
    }
}

}  // namespace

PageReader::Input PageReader::read(const std::string& input, Warnings& warnings) {
    if (input == "-")
        return readContent(readInput(input), kStandardInput, "", warnings);
    if (Images::formatOf(readBeginning(input, Images::kFormatBytes)) != ImageFormat::none)
        return readImageFile(input, warnings);
    return readContent(readInput(input), input, folderOf(input), warnings);
}

/// An image stays in its file, whatever its size.
PageReader::Input PageReader::readImageFile(const std::string& name, Warnings& warnings) {
    return readPicture(name, warnings, [&]() -> const Images::UprightImage& {
        return images_.fromFile(name, name);
    });
}

PageReader::Input PageReader::readContent(const std::string& content, const std::string& name,
                                          const std::string& folder, Warnings& warnings) {
    if (Images::formatOf(content) == ImageFormat::none)
        return {svg::readSvg(content, name, warnings, {&images_, folder}, limits_, wishes_), false};
    return readPicture(name, warnings, [&]() -> const Images::UprightImage& {
        return images_.fromBytes(content, name);
    });
}

}  // namespace psrender
