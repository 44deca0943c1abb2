#include "Images/internal/GifReader.h"

#include "Images/ImageError.h"
#include "Images/internal/WholePicture.h"

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <exception>
#include <memory>
#include <utility>
#include <vector>

namespace Images {

namespace {

struct FileCloser {
    void operator()(GifFileType* file) const { DGifCloseFile(file, nullptr); }
};

/// The rows of an interlaced picture come in four passes.
struct Pass {
    int first;
    int step;
};
constexpr std::array kPlain{Pass{0, 1}};
constexpr std::array kInterlaced{Pass{0, 8}, Pass{4, 8}, Pass{2, 4}, Pass{1, 2}};

class GifReader : public WholePicture {
public:
    GifReader(ByteReader bytes, std::uint64_t mostPixels) : bytes_(std::move(bytes)) {
        file_.reset(DGifOpen(this, onRead, nullptr));
        require(file_ != nullptr);
        const auto sideOf = [](GifWord side) { return static_cast<std::uint64_t>(side); };
        require(file_->SWidth > 0 && file_->SHeight > 0);
        begin(sideOf(file_->SWidth), sideOf(file_->SHeight), mostPixels);
        findPicture();
        const GifImageDesc& frame = file_->Image;
        requireFeasible(sideOf(frame.Width), sideOf(frame.Height), mostPixels);
        decode(frame);
        file_.reset();
    }

private:
    static int onRead(GifFileType* file, GifByteType* target, int count) {
        auto* reader = static_cast<GifReader*>(file->UserData);
        try {
            return static_cast<int>(reader->bytes_.read(target, static_cast<std::size_t>(count)));
        } catch (const ImageLost&) {
            reader->failure_ = std::current_exception();
            return 0;
        }
    }

    void require(bool isRight) const {
        if (failure_)
            std::rethrow_exception(failure_);
        if (!isRight)
            throw ImageError("is a damaged GIF image; fetch or export it anew");
    }

    void findPicture() {
        GifRecordType type = UNDEFINED_RECORD_TYPE;
        while (type != IMAGE_DESC_RECORD_TYPE) {
            require(DGifGetRecordType(file_.get(), &type) == GIF_OK &&
                    type != TERMINATE_RECORD_TYPE);
            if (type == EXTENSION_RECORD_TYPE)
                readExtension();
        }
        require(DGifGetImageDesc(file_.get()) == GIF_OK);
    }

    void readExtension() {
        int code = 0;
        GifByteType* block = nullptr;
        require(DGifGetExtension(file_.get(), &code, &block) == GIF_OK);
        while (block != nullptr) {
            GraphicsControlBlock control{};
            if (code == GRAPHICS_EXT_FUNC_CODE &&
                DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK)
                clearColor_ = control.TransparentColor;
            require(DGifGetExtensionNext(file_.get(), &block) == GIF_OK);
        }
    }

    void decode(const GifImageDesc& frame) {
        const ColorMapObject* colors =
            frame.ColorMap != nullptr ? frame.ColorMap : file_->SColorMap;
        require(colors != nullptr && frame.Width > 0 && frame.Left >= 0 && frame.Top >= 0);
        std::vector<GifPixelType> row(static_cast<std::size_t>(frame.Width));
        const auto decodePass = [&](const Pass& pass) {
            for (int y = pass.first; y < frame.Height; y += pass.step) {
                require(DGifGetLine(file_.get(), row.data(), frame.Width) == GIF_OK);
                if (frame.Top + y < facts_.size.height)
                    putRow(row, *colors, frame.Left, frame.Top + y);
            }
        };
        if (frame.Interlace)
            std::ranges::for_each(kInterlaced, decodePass);
        else
            std::ranges::for_each(kPlain, decodePass);
    }

    void putRow(const std::vector<GifPixelType>& row, const ColorMapObject& colors, int left,
                int y) {
        const int count = std::min(static_cast<int>(row.size()), facts_.size.width - left);
        for (int x = 0; x < count; ++x) {
            const int index = row[static_cast<std::size_t>(x)];
            if (index == clearColor_ || index >= colors.ColorCount)
                continue;
            const GifColorType& color = colors.Colors[index];
            std::uint8_t* pixel = pixelAt(left + x, y);
            pixel[0] = color.Red;
            pixel[1] = color.Green;
            pixel[2] = color.Blue;
            pixel[3] = 255;
        }
    }

    ByteReader bytes_;
    std::exception_ptr failure_;  ///< that is no fault of the image
    int clearColor_ = NO_TRANSPARENT_COLOR;
    std::unique_ptr<GifFileType, FileCloser> file_;
};

}  // namespace

std::unique_ptr<PixelReader> openGif(ByteReader bytes, std::uint64_t mostPixels) {
    return std::make_unique<GifReader>(std::move(bytes), mostPixels);
}

}  // namespace Images
