#include "ZipLib/GzipReader.h"

#include "Core/Exception.h"

#include <libdeflate.h>

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

namespace ZipLib {

namespace {

struct Release {
    void operator()(libdeflate_decompressor* decompressor) const {
        libdeflate_free_decompressor(decompressor);
    }
};

/// Room for a drawing that shrank to a quarter, which is usual.
constexpr std::size_t kUsualRatio = 4;
constexpr std::size_t kLeastRoom = 65536;

class Unpacking {
public:
    Unpacking(std::string_view bytes, std::size_t most)
        : decompressor_(libdeflate_alloc_decompressor()), bytes_(bytes), most_(most) {
        if (!decompressor_)
            throw std::bad_alloc();
    }

    std::string run() {
        do {
            member();
        } while (GzipReader::isGzip(bytes_));
        content_.resize(size_);
        return std::move(content_);
    }

private:
    /// A member tells its size only in its last bytes and then modulo 4 GiB, so the room grows
    /// until it is enough. It is kept for the members behind: making it anew for each would take
    /// the square of their number.
    void member() {
        const std::size_t before = size_;
        std::size_t room = content_.size() - before;
        if (room == 0)
            room = std::max(kLeastRoom, bytes_.size() * kUsualRatio);
        for (;; room *= 2) {
            room = std::min(room, most_ - before);
            content_.resize(std::max(content_.size(), before + room));
            std::size_t read = 0;
            std::size_t written = 0;
            const libdeflate_result result =
                libdeflate_gzip_decompress_ex(decompressor_.get(), bytes_.data(), bytes_.size(),
                                              content_.data() + before, room, &read, &written);
            if (result == LIBDEFLATE_SUCCESS) {
                size_ = before + written;
                bytes_.remove_prefix(read);
                return;
            }
            if (result != LIBDEFLATE_INSUFFICIENT_SPACE)
                throw Core::FormatException("GzipReader", 1, "the gzip data is damaged or cut off");
            if (room == most_ - before)
                throw Core::FormatException(
                    "GzipReader", 2,
                    "the gzip data unpacks to more than " + std::to_string(most_) + " bytes");
        }
    }

    std::unique_ptr<libdeflate_decompressor, Release> decompressor_;
    std::string_view bytes_;
    std::size_t most_;
    std::string content_;   ///< and room for more behind it
    std::size_t size_ = 0;  ///< of what is unpacked
};

}  // namespace

bool GzipReader::isGzip(std::string_view bytes) {
    return bytes.starts_with("\x1f\x8b");
}

std::string GzipReader::unpack(std::string_view bytes, std::size_t most) {
    return Unpacking(bytes, most).run();
}

}  // namespace ZipLib
