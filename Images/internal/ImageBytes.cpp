#include "Images/internal/ImageBytes.h"

#include "Core/FileSystem.h"
#include "Core/internal/Absence.h"
#include "Images/ImageError.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace Images {

namespace {

[[noreturn]] void failRead() {
    throw ImageLost("cannot be read (" + std::generic_category().message(errno) +
                    "); check the disk and try again");
}

[[noreturn]] void failOpen() {
    if (!Core::IO::isAbsence(errno))
        failRead();
    throw ImageError("cannot be read (" + std::generic_category().message(errno) +
                     "); check the name and its permissions");
}

[[noreturn]] void failSpool() {
    throw ImageLost("cannot be kept in a temporary file (" +
                    std::generic_category().message(errno) + "); make room or set TMPDIR");
}

/// A pipe would make the opening wait, hence O_NONBLOCK.
std::shared_ptr<const Core::IO::Descriptor> openFile(const std::string& path) {
    auto file = std::make_shared<const Core::IO::Descriptor>(
        ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file->number() < 0)
        failOpen();
    return file;
}

std::shared_ptr<const Core::IO::Descriptor> openTemporary() {
    const std::string name = Core::IO::FileSystem::getTempFileName(u"psgraphics-").toUtf8();
    auto file = std::make_shared<const Core::IO::Descriptor>(
        ::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (file->number() < 0 || ::unlink(name.c_str()) != 0)
        failSpool();
    return file;
}

}  // namespace

std::size_t ByteReader::read(std::uint8_t* bytes, std::size_t size) {
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(size, end_ - next_));
    std::size_t done = 0;
    while (done < wanted) {
        const ssize_t count =
            ::pread(file_->number(), bytes + done, wanted - done, static_cast<off_t>(next_ + done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            failRead();
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    next_ += done;
    return done;
}

ImageBytes ImageBytes::inFile(const std::string& path) {
    const auto file = openFile(path);
    struct stat status {};
    if (::fstat(file->number(), &status) != 0)
        failRead();
    if (!S_ISREG(status.st_mode))
        throw ImageError("is no regular file; name a PNG or JPEG file");
    ImageBytes image;
    image.path_ = path;
    image.end_ = static_cast<std::uint64_t>(status.st_size);
    image.identity_ = std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino) + ":" +
                      std::to_string(status.st_size) + ":" + std::to_string(status.st_mtim.tv_sec) +
                      "." + std::to_string(status.st_mtim.tv_nsec);
    return image;
}

ByteReader ImageBytes::open() const {
    return {spool_ ? spool_ : openFile(path_), begin_, end_};
}

ImageBytes Spool::add(std::string_view bytes) {
    if (!file_)
        file_ = openTemporary();
    ImageBytes image;
    image.spool_ = file_;
    image.begin_ = end_;
    image.identity_ = "spool:" + std::to_string(end_);
    while (!bytes.empty()) {
        const ssize_t count =
            ::pwrite(file_->number(), bytes.data(), bytes.size(), static_cast<off_t>(end_));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            failSpool();
        end_ += static_cast<std::uint64_t>(count);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    image.end_ = end_;
    return image;
}

}  // namespace Images
