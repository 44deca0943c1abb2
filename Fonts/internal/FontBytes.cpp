#include "Fonts/internal/FontBytes.h"

#include "Fonts/FontException.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace Fonts {

FontBytes::FontBytes(const std::string& fileName) : name_(fileName) {
    errno = 0;
    blob_.reset(hb_blob_create_from_file_or_fail(fileName.c_str()));
    if (!blob_)
        throw FontException(name_, errno != 0
                                       ? "cannot be read: " + std::generic_category().message(errno)
                                       : "cannot be read or is empty");
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
