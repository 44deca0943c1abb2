#include "Images/internal/WebpReader.h"

#include "Images/ImageError.h"
#include "Images/internal/ExifFacts.h"
#include "Images/internal/WholePicture.h"

#include <webp/decode.h>
#include <webp/demux.h>

#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace Images {

namespace {

using Bytes = std::span<const std::uint8_t>;

[[noreturn]] void failDamaged() {
    throw ImageError("is a damaged WebP image; fetch or export it anew");
}

/// No picture of so many pixels needs more.
std::size_t mostBytes(std::uint64_t mostPixels) {
    constexpr std::uint64_t kBeside = 16'000'000;  // profiles and notes
    return static_cast<std::size_t>(mostPixels * 4 + kBeside);
}

std::vector<std::uint8_t> readAll(ByteReader& reader, std::size_t most) {
    constexpr std::size_t kPiece = std::size_t{1} << 16;
    std::vector<std::uint8_t> all;
    for (std::size_t count = 1; count > 0;) {
        const std::size_t before = all.size();
        if (before > most)
            failDamaged();
        all.resize(before + kPiece);
        count = reader.read(all.data() + before, kPiece);
        all.resize(before + count);
    }
    return all;
}

struct FrameReleaser {
    void operator()(WebPIterator* frame) const { WebPDemuxReleaseIterator(frame); }
};
struct ChunkReleaser {
    void operator()(WebPChunkIterator* chunk) const { WebPDemuxReleaseChunkIterator(chunk); }
};
struct ParserDeleter {
    void operator()(WebPDemuxer* parser) const { WebPDemuxDelete(parser); }
};

class WebpReader : public WholePicture {
public:
    WebpReader(ByteReader bytes, std::uint64_t mostPixels)
        : file_(readAll(bytes, mostBytes(mostPixels))) {
        const WebPData data{file_.data(), file_.size()};
        parser_.reset(WebPDemux(&data));
        if (!parser_)
            failDamaged();
        begin(WebPDemuxGetI(parser_.get(), WEBP_FF_CANVAS_WIDTH),
              WebPDemuxGetI(parser_.get(), WEBP_FF_CANVAS_HEIGHT), mostPixels);
        decodeFirst();
        readNotes();
        parser_.reset();
        file_ = {};
    }

private:
    void decodeFirst() {
        WebPIterator frame{};
        const bool isThere = WebPDemuxGetFrame(parser_.get(), 1, &frame) != 0;
        const std::unique_ptr<WebPIterator, FrameReleaser> release(&frame);
        int width = 0;
        int height = 0;
        if (!isThere ||
            WebPGetInfo(frame.fragment.bytes, frame.fragment.size, &width, &height) == 0 ||
            width < 1 || height < 1 || frame.x_offset < 0 || frame.y_offset < 0 ||
            width > facts_.size.width - frame.x_offset ||
            height > facts_.size.height - frame.y_offset)
            failDamaged();
        const auto stride = static_cast<std::size_t>(facts_.size.width) * 4;
        const auto room =
            stride * static_cast<std::size_t>(height - 1) + static_cast<std::size_t>(width) * 4;
        if (WebPDecodeRGBAInto(frame.fragment.bytes, frame.fragment.size,
                               pixelAt(frame.x_offset, frame.y_offset), room,
                               static_cast<int>(stride)) == nullptr)
            failDamaged();
    }

    void readNotes() {
        const std::uint32_t flags = WebPDemuxGetI(parser_.get(), WEBP_FF_FORMAT_FLAGS);
        if ((flags & ICCP_FLAG) != 0)
            withChunk("ICCP", [this](Bytes profile) { loadProfile(profile); });
        if ((flags & EXIF_FLAG) != 0)
            withChunk("EXIF", [this](Bytes exif) { takeExif(exif); });
    }

    template <class Take>
    void withChunk(const char* name, Take take) {
        WebPChunkIterator chunk{};
        const bool isThere = WebPDemuxGetChunk(parser_.get(), name, 1, &chunk) != 0;
        const std::unique_ptr<WebPChunkIterator, ChunkReleaser> release(&chunk);
        if (isThere)
            take({chunk.chunk.bytes, chunk.chunk.size});
    }

    /// Some writers put JPEG's mark before the directory.
    void takeExif(Bytes exif) {
        constexpr std::string_view kMark("Exif\0\0", 6);
        const std::string_view text(reinterpret_cast<const char*>(exif.data()), exif.size());
        const ExifFacts facts =
            parseExif(text.starts_with(kMark) ? exif.subspan(kMark.size()) : exif);
        facts_.orientation = facts.orientation;
        facts_.horizontalResolution = facts.horizontalResolution;
        facts_.verticalResolution = facts.verticalResolution;
    }

    std::vector<std::uint8_t> file_;
    std::unique_ptr<WebPDemuxer, ParserDeleter> parser_;
};

}  // namespace

std::unique_ptr<PixelReader> openWebp(ByteReader bytes, std::uint64_t mostPixels) {
    return std::make_unique<WebpReader>(std::move(bytes), mostPixels);
}

}  // namespace Images
