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

/// Drawings shrink to a quarter as a rule.
constexpr std::size_t kUsualRatio = 4;
constexpr std::size_t kLeastRoom = 65536;

class Unpacking {
public:
    Unpacking(std::string_view bytes, std::size_t most)
        : decompressor_(libdeflate_alloc_decompressor()), bytes_(bytes), most_(most) {
        if (!decompressor_)
            throw std::bad_alloc();
        content_.resize(std::min(most_, std::max(kLeastRoom, bytes_.size() * kUsualRatio)));
    }

    std::string run() {
        do {
            while (!member())
                grow();
        } while (GzipReader::isGzip(bytes_));
        content_.resize(done_);
        return std::move(content_);
    }

private:
    /// Unpacks a member behind those before it; false if it does not fit. A member tells its size
    /// only in its last bytes and then modulo 4 GiB.
    bool member() {
        std::size_t read = 0;
        std::size_t written = 0;
        const libdeflate_result result = libdeflate_gzip_decompress_ex(
            decompressor_.get(), bytes_.data(), bytes_.size(), content_.data() + done_,
            content_.size() - done_, &read, &written);
        if (result == LIBDEFLATE_INSUFFICIENT_SPACE)
            return false;
        if (result != LIBDEFLATE_SUCCESS)
            throw Core::FormatException("GzipReader", 1, "the gzip data is damaged or cut off");
        done_ += written;
        bytes_.remove_prefix(read);
        return true;
    }

    /// Doubled each time, so that many members take no longer than one of their size.
    void grow() {
        if (content_.size() == most_)
            throw Core::FormatException(
                "GzipReader", 2,
                "the gzip data unpacks to more than " + std::to_string(most_) + " bytes");
        content_.resize(content_.size() > most_ / 2 ? most_ : content_.size() * 2);
    }

    std::unique_ptr<libdeflate_decompressor, Release> decompressor_;
    std::string_view bytes_;
    std::size_t most_;
    std::string content_;   ///< with room behind what is unpacked
    std::size_t done_ = 0;  ///< bytes unpacked
};

}  // namespace

bool GzipReader::isGzip(std::string_view bytes) {
    return bytes.starts_with("\x1f\x8b");
}

std::string GzipReader::unpack(std::string_view bytes, std::size_t most) {
    return Unpacking(bytes, most).run();
}

}  // namespace ZipLib
