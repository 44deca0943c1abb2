#include "Images/internal/JpegReader.h"

#include "Images/ImageError.h"
#include "Images/internal/ColorProfile.h"
#include "Images/internal/ExifFacts.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include <jpeglib.h>

#include <jerror.h>

namespace Images {

using Drawing::ColorSpaceType;

namespace {

constexpr int kExifMarker = JPEG_APP0 + 1;
constexpr int kProfileMarker = JPEG_APP0 + 2;
constexpr unsigned kLongestMarker = 0xFFFF;
constexpr double kCentimetresAnInch = 2.54;
/// Every scan goes over the whole image, and a few bytes make one.
constexpr int kMostScans = 200;

struct Free {
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): the library allocates so.
    void operator()(JOCTET* memory) const { std::free(memory); }
};

class JpegReader : public PixelReader {
public:
    JpegReader(ByteReader bytes, std::uint64_t mostPixels) : bytes_(std::move(bytes)) {
        prepareCallbacks();
        run([this] { jpeg_create_decompress(&jpeg_); });
        readHead(mostPixels);
    }

    void readRow(std::uint8_t* pixels, std::uint8_t* /*alpha*/) override {
        JSAMPROW row = pixels;
        run([&] {
            if (!isStarted_)
                jpeg_start_decompress(&jpeg_);
            isStarted_ = true;
            jpeg_read_scanlines(&jpeg_, &row, 1);
        });
        if (isInverted_)
            invert(pixels);
        profile_.apply(pixels, static_cast<std::size_t>(facts_.size.width));
    }

private:
    /// Releases what the library allocated, if it came to that.
    struct Handle : jpeg_decompress_struct {
        Handle() : jpeg_decompress_struct{} {}
        Handle(const Handle&) = delete;
        Handle& operator=(const Handle&) = delete;
        ~Handle() { jpeg_destroy_decompress(this); }
    };

    /// The library reports an error by a jump: `step` may own nothing.
    template <class Step>
    void run(Step step) {
        if (setjmp(jump_) != 0) {  // NOLINT(cert-err52-cpp): a library of C
            if (failure_)
                std::rethrow_exception(failure_);
            throw ImageError(message_);
        }
        step();
    }

    static JpegReader& of(j_common_ptr jpeg) {
        return *static_cast<JpegReader*>(jpeg->client_data);
    }

    // NOLINTNEXTLINE(cert-err52-cpp): a library of C
    [[noreturn]] void fail() { std::longjmp(jump_, 1); }

    [[noreturn]] static void onError(j_common_ptr jpeg) {
        std::array<char, JMSG_LENGTH_MAX> text{};
        jpeg->err->format_message(jpeg, text.data());
        JpegReader& reader = of(jpeg);
        if (jpeg->err->msg_code == JERR_OUT_OF_MEMORY)
            reader.failure_ = std::make_exception_ptr(std::bad_alloc());
        if (reader.message_.empty())
            reader.message_ =
                std::string("is a damaged JPEG image (") + text.data() + "); export it anew";
        reader.fail();
    }
    /// The library would fill up missing parts with grey.
    static void onMessage(j_common_ptr jpeg, int level) {
        const int code = jpeg->err->msg_code;
        if (level < 0 && (code == JWRN_HIT_MARKER || code == JWRN_HUFF_BAD_CODE))
            onError(jpeg);
    }
    static void onOutput(j_common_ptr /*jpeg*/) {}
    static void onProgress(j_common_ptr jpeg) {
        JpegReader& reader = of(jpeg);
        if (reader.jpeg_.input_scan_number <= kMostScans)
            return;
        reader.message_ = "is a JPEG image of more than 200 scans; export it anew";
        reader.fail();
    }

    static void onStart(j_decompress_ptr /*jpeg*/) {}
    static boolean onFill(j_decompress_ptr jpeg) {
        JpegReader& reader = of(reinterpret_cast<j_common_ptr>(jpeg));
        if (!reader.fill())
            reader.fail();
        return TRUE;
    }
    static void onSkip(j_decompress_ptr jpeg, long count) {
        while (count > static_cast<long>(jpeg->src->bytes_in_buffer)) {
            count -= static_cast<long>(jpeg->src->bytes_in_buffer);
            onFill(jpeg);
        }
        if (count > 0) {
            jpeg->src->next_input_byte += count;
            jpeg->src->bytes_in_buffer -= static_cast<std::size_t>(count);
        }
    }
    bool fill() {
        try {
            source_.next_input_byte = block_.data();
            source_.bytes_in_buffer = bytes_.read(block_.data(), block_.size());
            return source_.bytes_in_buffer > 0 || fillWithEnd();
        } catch (const ImageLost&) {
            failure_ = std::current_exception();
            return false;
        }
    }
    /// The library looks ahead, so a file whose end mark only is missing asks for more, too.
    bool fillWithEnd() {
        message_ = "is a JPEG image that is cut short; fetch or export it anew";
        block_[0] = 0xFF;
        block_[1] = JPEG_EOI;
        source_.bytes_in_buffer = 2;
        return isStarted_;
    }

    void prepareCallbacks() {
        jpeg_.err = jpeg_std_error(&errors_);
        jpeg_.client_data = this;
        errors_.error_exit = onError;
        errors_.emit_message = onMessage;
        errors_.output_message = onOutput;
        progress_.progress_monitor = onProgress;
        source_.init_source = onStart;
        source_.fill_input_buffer = onFill;
        source_.skip_input_data = onSkip;
        source_.resync_to_restart = jpeg_resync_to_restart;
        source_.term_source = onStart;
    }

    void readHead(std::uint64_t mostPixels) {
        run([this] {
            jpeg_.src = &source_;
            jpeg_.progress = &progress_;
            jpeg_save_markers(&jpeg_, kExifMarker, kLongestMarker);
            jpeg_save_markers(&jpeg_, kProfileMarker, kLongestMarker);
            jpeg_read_header(&jpeg_, TRUE);
        });
        facts_.size = {static_cast<std::int32_t>(jpeg_.image_width),
                       static_cast<std::int32_t>(jpeg_.image_height)};
        requireFeasible(jpeg_.image_width, jpeg_.image_height, mostPixels);
        chooseColorSpace();
        readExif();
        readDensity();
        readProfile();
        facts_.isPlainJpeg = !profile_.changesColors();
    }

    /// Programs that write the Adobe marker write CMYK with 255 for no ink.
    void chooseColorSpace() {
        if (jpeg_.num_components == 4) {
            facts_.colorSpace = ColorSpaceType::cmyk;
            jpeg_.out_color_space = JCS_CMYK;
            isInverted_ = jpeg_.saw_Adobe_marker != 0;
        } else if (jpeg_.num_components == 1) {
            facts_.colorSpace = ColorSpaceType::gray;
            jpeg_.out_color_space = JCS_GRAYSCALE;
        } else {
            jpeg_.out_color_space = JCS_RGB;
        }
    }

    void readExif() {
        using namespace std::string_view_literals;
        constexpr std::string_view kHead = "Exif\0\0"sv;
        for (auto* marker = jpeg_.marker_list; marker != nullptr; marker = marker->next) {
            const std::string_view data(reinterpret_cast<const char*>(marker->data),
                                        marker->data_length);
            if (marker->marker != kExifMarker || !data.starts_with(kHead))
                continue;
            const ExifFacts exif =
                parseExif({marker->data + kHead.size(), marker->data_length - kHead.size()});
            facts_.orientation = exif.orientation;
            facts_.horizontalResolution = exif.horizontalResolution;
            facts_.verticalResolution = exif.verticalResolution;
            return;
        }
    }

    void readDensity() {
        if (jpeg_.saw_JFIF_marker == 0 || jpeg_.density_unit == 0)
            return;
        const double factor = jpeg_.density_unit == 2 ? kCentimetresAnInch : 1;
        facts_.horizontalResolution = jpeg_.X_density * factor;
        facts_.verticalResolution = jpeg_.Y_density * factor;
    }

    void readProfile() {
        JOCTET* data = nullptr;
        unsigned size = 0;
        boolean found = FALSE;
        run([&] { found = jpeg_read_icc_profile(&jpeg_, &data, &size); });
        const std::unique_ptr<JOCTET, Free> profile(data);
        if (found != FALSE)
            facts_.isProfileIgnored = !profile_.load({data, size}, facts_.colorSpace);
    }

    void invert(std::uint8_t* pixels) const {
        const std::size_t count = static_cast<std::size_t>(facts_.size.width) * 4;
        std::transform(pixels, pixels + count, pixels,
                       [](std::uint8_t ink) { return static_cast<std::uint8_t>(255 - ink); });
    }

    ByteReader bytes_;
    jpeg_error_mgr errors_{};
    jpeg_source_mgr source_{};
    jpeg_progress_mgr progress_{};
    Handle jpeg_;
    std::jmp_buf jump_{};
    std::string message_;
    std::exception_ptr failure_;  ///< that is no fault of the image
    std::array<JOCTET, 16384> block_{};
    ColorProfile profile_;
    bool isInverted_ = false;
    bool isStarted_ = false;
};

}  // namespace

std::unique_ptr<PixelReader> openJpeg(ByteReader bytes, std::uint64_t mostPixels) {
    return std::make_unique<JpegReader>(std::move(bytes), mostPixels);
}

}  // namespace Images
