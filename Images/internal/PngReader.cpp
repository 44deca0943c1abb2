#include "Images/internal/PngReader.h"

#include "Images/ImageError.h"
#include "Images/internal/ColorProfile.h"
#include "Images/internal/ExifFacts.h"

#include <png.h>

#include <algorithm>
#include <csetjmp>
#include <exception>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace Images {

using Drawing::ColorSpaceType;

namespace {

constexpr png_uint_32 kLongestSide = 0x7FFFFFFF;
constexpr png_uint_32 kMostChunks = 1000;
constexpr png_alloc_size_t kLargestChunk = 16'000'000;
constexpr double kMetresAnInch = 0.0254;
constexpr double kEverydayGamma = 1 / 2.2;

class PngReader : public PixelReader {
public:
    PngReader(ByteReader bytes, std::uint64_t mostPixels)
        : bytes_(std::move(bytes)),
          handles_(png_create_read_struct_2(PNG_LIBPNG_VER_STRING, this, onError, onWarning, this,
                                            onAllocate, onFree)),
          png_(handles_.png),
          info_(handles_.info) {
        readHead(mostPixels);
    }

    void readRow(std::uint8_t* pixels, std::uint8_t* alpha) override {
        const std::uint8_t* row = isInterlaced_ ? wholeRow() : nextRow();
        if (facts_.hasAlpha)
            split(row, pixels, alpha);
        else
            std::copy_n(row, rowSize_, pixels);
        profile_.apply(pixels, static_cast<std::size_t>(facts_.size.width));
        if (++row_ == facts_.size.height)
            run([this] { png_read_end(png_, nullptr); });
    }

private:
    struct Handles {
        explicit Handles(png_structp created)
            : png(created), info(png != nullptr ? png_create_info_struct(png) : nullptr) {
            if (info == nullptr) {
                png_destroy_read_struct(&png, nullptr, nullptr);
                throw std::bad_alloc();
            }
        }
        Handles(const Handles&) = delete;
        Handles& operator=(const Handles&) = delete;
        ~Handles() { png_destroy_read_struct(&png, &info, nullptr); }

        png_structp png;
        png_infop info;
    };

    /// The library reports an error by a jump: `step` may own nothing.
    template <class Step>
    void run(Step step) {
        if (setjmp(png_jmpbuf(png_)) == 0) {  // NOLINT(cert-err52-cpp): a library of C
            step();
            isDone_ = true;
        } else {
            isDone_ = false;
        }
        if (failure_)
            std::rethrow_exception(failure_);
        if (!isDone_)
            throw ImageError(message_);
    }

    static void onError(png_structp png, const char* message) {
        auto* reader = static_cast<PngReader*>(png_get_error_ptr(png));
        if (reader->message_.empty())
            reader->message_ =
                "is a damaged PNG image (" + std::string(message) + "); export it anew";
        png_longjmp(png, 1);
    }
    static void onWarning(png_structp /*png*/, const char* /*message*/) {}

    /// A chunk may claim any size, whatever the file has. Without memory the library would pass
    /// over chunks that say how colours are meant.
    static png_voidp onAllocate(png_structp png, png_alloc_size_t size) {
        auto* reader = static_cast<PngReader*>(png_get_mem_ptr(png));
        if (!reader->isHeadRead_ && size > kLargestChunk)
            return nullptr;
        void* const memory = ::operator new(size, std::nothrow);
        if (memory == nullptr)
            reader->failure_ = std::make_exception_ptr(std::bad_alloc());
        return memory;
    }
    static void onFree(png_structp /*png*/, png_voidp memory) { ::operator delete(memory); }

    static void onRead(png_structp png, png_bytep target, std::size_t size) {
        auto* reader = static_cast<PngReader*>(png_get_io_ptr(png));
        if (!reader->fill(target, size))
            png_error(png, "cut short");
    }
    bool fill(std::uint8_t* target, std::size_t size) {
        try {
            if (bytes_.read(target, size) == size)
                return true;
            message_ = "is a PNG image that is cut short; fetch or export it anew";
        } catch (const ImageLost&) {
            failure_ = std::current_exception();
        }
        return false;
    }

    void readHead(std::uint64_t mostPixels) {
        run([this] {
            png_set_read_fn(png_, this, onRead);
            png_set_user_limits(png_, kLongestSide, kLongestSide);
            png_set_chunk_cache_max(png_, kMostChunks);
            png_set_chunk_malloc_max(png_, kLargestChunk);
            png_read_info(png_, info_);
        });
        isHeadRead_ = true;
        facts_.size = {static_cast<std::int32_t>(png_get_image_width(png_, info_)),
                       static_cast<std::int32_t>(png_get_image_height(png_, info_))};
        requireFeasible(png_get_image_width(png_, info_), png_get_image_height(png_, info_),
                        mostPixels);
        readResolution();
        readOrientation();
        run([this] { unify(); });
        const png_byte channels = png_get_channels(png_, info_);
        facts_.colorSpace = channels > 2 ? ColorSpaceType::rgb : ColorSpaceType::gray;
        facts_.hasAlpha = channels % 2 == 0;
        rowSize_ = png_get_rowbytes(png_, info_);
        readProfile();
    }

    /// All kinds of pixels become 8-bit grey or RGB, with alpha if there is any transparency.
    void unify() {
        isInterlaced_ = png_get_interlace_type(png_, info_) != PNG_INTERLACE_NONE;
        png_set_expand(png_);
        png_set_scale_16(png_);
        double gamma = 0;
        if (png_get_valid(png_, info_, PNG_INFO_sRGB | PNG_INFO_iCCP) == 0 &&
            png_get_gAMA(png_, info_, &gamma) != 0)
            png_set_gamma(png_, 1 / kEverydayGamma, gamma);
        if (isInterlaced_)
            png_set_interlace_handling(png_);
        png_read_update_info(png_, info_);
    }

    void readResolution() {
        png_uint_32 x = 0;
        png_uint_32 y = 0;
        int unit = PNG_RESOLUTION_UNKNOWN;
        if (png_get_pHYs(png_, info_, &x, &y, &unit) == 0 || unit != PNG_RESOLUTION_METER)
            return;
        facts_.horizontalResolution = x * kMetresAnInch;
        facts_.verticalResolution = y * kMetresAnInch;
    }

    void readOrientation() {
        png_uint_32 size = 0;
        png_bytep exif = nullptr;
        if (png_get_eXIf_1(png_, info_, &size, &exif) != 0)
            facts_.orientation = parseExif({exif, size}).orientation;
    }

    void readProfile() {
        png_charp name = nullptr;
        png_bytep profile = nullptr;
        png_uint_32 size = 0;
        int method = 0;
        if (png_get_valid(png_, info_, PNG_INFO_sRGB) == 0 &&
            png_get_iCCP(png_, info_, &name, &method, &profile, &size) != 0)
            facts_.isProfileIgnored = !profile_.load({profile, size}, facts_.colorSpace);
    }

    const std::uint8_t* nextRow() {
        pixels_.resize(rowSize_);
        run([this] { png_read_row(png_, pixels_.data(), nullptr); });
        return pixels_.data();
    }

    /// The rows of an interlaced image are complete only when all of it has been read.
    const std::uint8_t* wholeRow() {
        const auto height = static_cast<std::size_t>(facts_.size.height);
        if (pixels_.empty()) {
            pixels_.resize(rowSize_ * height);
            std::vector<png_bytep> rows(height);
            for (std::size_t i = 0; i < height; ++i)
                rows[i] = pixels_.data() + i * rowSize_;
            run([&] { png_read_image(png_, rows.data()); });
        }
        return pixels_.data() + static_cast<std::size_t>(row_) * rowSize_;
    }

    void split(const std::uint8_t* row, std::uint8_t* pixels, std::uint8_t* alpha) const {
        const std::size_t components = facts_.componentCount();
        for (std::int32_t i = 0; i < facts_.size.width; ++i) {
            for (std::size_t k = 0; k < components; ++k)
                *pixels++ = *row++;
            *alpha++ = *row++;
        }
    }

    ByteReader bytes_;
    std::string message_;
    std::exception_ptr failure_;  ///< that is no fault of the image
    bool isDone_ = false;         ///< whether the last step came to its end
    bool isHeadRead_ = false;
    Handles handles_;
    png_structp png_;
    png_infop info_;
    ColorProfile profile_;
    std::vector<std::uint8_t> pixels_;  ///< one row, or all of an interlaced image
    std::size_t rowSize_ = 0;
    std::int32_t row_ = 0;
    bool isInterlaced_ = false;
};

}  // namespace

std::unique_ptr<PixelReader> openPng(ByteReader bytes, std::uint64_t mostPixels) {
    return std::make_unique<PngReader>(std::move(bytes), mostPixels);
}

}  // namespace Images
