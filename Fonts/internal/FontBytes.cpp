#include "Fonts/internal/FontBytes.h"

#include "Core/Exception.h"
#include "Fonts/FontException.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace Fonts {

namespace {

/// Whether an `errno` says that a name leads to no file that may be read. All else is the
/// system's fault, and no font is passed over for that.
bool isAbsence(int error) {
    constexpr std::array absences{ENOENT, ENOTDIR, EACCES, EPERM, ELOOP, ENAMETOOLONG};
    return std::ranges::find(absences, error) != absences.end();
}

[[noreturn]] void failRead(const std::string& name) {
    if (errno == 0)
        throw FontException(name, "cannot be read or is empty");
    if (!isAbsence(errno))
        throw Core::IOException("cannot read", name, errno);
    throw FontException(name, "cannot be read: " + std::generic_category().message(errno));
}

}  // namespace

FontBytes::FontBytes(const std::string& fileName) : name_(fileName) {
    errno = 0;
    blob_.reset(hb_blob_create_from_file_or_fail(fileName.c_str()));
    if (!blob_)
        failRead(name_);
    refer();
}

FontBytes::FontBytes(const Core::ByteArray& data, std::string name)
    : name_(std::move(name)),
      blob_(hb_blob_create(data.chars(), static_cast<unsigned>(data.size()),
                           HB_MEMORY_MODE_DUPLICATE, nullptr, nullptr)) {
    refer();
}

void FontBytes::refer() {
    hb_blob_make_immutable(blob_.get());
    unsigned length = 0;
    const char* first = hb_blob_get_data(blob_.get(), &length);
    bytes_ = {reinterpret_cast<const std::uint8_t*>(first), length};
}

}  // namespace Fonts
