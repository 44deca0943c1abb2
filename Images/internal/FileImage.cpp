#include "Images/internal/FileImage.h"

#include "Core/StringFormatStream.h"
#include "Images/ImageError.h"

#include <xxhash.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <new>
#include <utility>
#include <vector>

namespace Images {

namespace {

constexpr std::size_t kPiece = std::size_t{1} << 16;

struct StateDeleter {
    void operator()(XXH3_state_t* state) const { XXH3_freeState(state); }
};
using HashState = std::unique_ptr<XXH3_state_t, StateDeleter>;

HashState newHash() {
    HashState state(XXH3_createState());
    if (!state)
        throw std::bad_alloc();
    return state;
}

/// What decoding all of a file tells about it.
class PixelHash {
public:
    explicit PixelHash(const ImageFacts& facts) : facts_(facts) {
        XXH3_128bits_reset(colors_.get());
        XXH3_128bits_reset(alphas_.get());
    }

    void readAll(PixelReader& reader) {
        const auto width = static_cast<std::size_t>(facts_.size.width);
        std::vector<std::uint8_t> pixels(width * facts_.componentCount());
        std::vector<std::uint8_t> alpha(facts_.hasAlpha ? width : 0);
        for (std::int32_t row = 0; row < facts_.size.height; ++row) {
            reader.readRow(pixels.data(), alpha.data());
            XXH3_128bits_update(colors_.get(), pixels.data(), pixels.size());
            XXH3_128bits_update(alphas_.get(), alpha.data(), alpha.size());
            isOpaque_ = isOpaque_ && std::ranges::count(alpha, 255) == std::ssize(alpha);
            if (facts_.hasAlpha)
                extend(row, alpha);
        }
    }

    /// The two digests and the frame go into a last one.
    [[nodiscard]] Core::String key() {
        if (!isOpaque_)
            addDigestOf(alphas_.get());
        const std::int32_t frame[] = {facts_.size.width, facts_.size.height,
                                      static_cast<std::int32_t>(facts_.colorSpace)};
        XXH3_128bits_update(colors_.get(), static_cast<const void*>(frame), sizeof frame);
        const XXH128_hash_t hash = XXH3_128bits_digest(colors_.get());
        return Core::StringFormatStream(u"{0:X16}{1:X16}") << hash.high64 << hash.low64;
    }

    [[nodiscard]] bool isOpaque() const { return isOpaque_; }
    /// The box around all pixels that are not clear; empty if all are.
    [[nodiscard]] PixelRect visiblePart() const {
        if (isOpaque_)
            return {0, 0, facts_.size.width, facts_.size.height};
        return {left_, top_, std::max(0, right_ - left_), std::max(0, bottom_ - top_)};
    }

private:
    void extend(std::int32_t row, const std::vector<std::uint8_t>& alpha) {
        const auto isSeen = [](std::uint8_t value) { return value != 0; };
        const auto first = std::find_if(alpha.begin(), alpha.end(), isSeen);
        if (first == alpha.end())
            return;
        const auto last = std::find_if(alpha.rbegin(), alpha.rend(), isSeen);
        left_ = std::min(left_, static_cast<std::int32_t>(first - alpha.begin()));
        right_ = std::max(right_, static_cast<std::int32_t>(alpha.rend() - last));
        top_ = std::min(top_, row);
        bottom_ = row + 1;
    }

    void addDigestOf(const XXH3_state_t* state) {
        const XXH128_hash_t digest = XXH3_128bits_digest(state);
        XXH3_128bits_update(colors_.get(), &digest, sizeof digest);
    }

    const ImageFacts& facts_;
    HashState colors_{newHash()};
    HashState alphas_{newHash()};
    bool isOpaque_ = true;
    std::int32_t left_ = std::numeric_limits<std::int32_t>::max();
    std::int32_t top_ = left_;
    std::int32_t right_ = 0;
    std::int32_t bottom_ = 0;
};

}  // namespace

Core::SmartPtr<FileImage> FileImage::make(ImageBytes bytes, const std::string& name,
                                          std::uint64_t mostPixels,
                                          std::shared_ptr<LastDecoder> last) {
    const auto reader = openImage(bytes.open(), mostPixels);
    PixelHash hash(reader->facts());
    hash.readAll(*reader);
    return Core::makeObject<FileImage>(hash.key(), reader->facts(), hash.visiblePart(),
                                       hash.isOpaque(), std::move(bytes), name, std::move(last));
}

FileImage::FileImage(Core::String key, const ImageFacts& facts, const PixelRect& visiblePart,
                     bool isOpaque, ImageBytes bytes, std::string name,
                     std::shared_ptr<LastDecoder> last)
    : RowImage(std::move(key), facts.size, facts.colorSpace, !isOpaque),
      bytes_(std::move(bytes)),
      facts_(facts),
      visiblePart_(visiblePart),
      name_(std::move(name)),
      last_(std::move(last)) {}

FileImage::~FileImage() {
    if (last_->image == this)
        *last_ = {};
}

void FileImage::readRows(std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                         std::uint8_t* alpha) const {
    try {
        decode(first, count, pixels, alpha);
        if (last_->nextRow == facts_.size.height)
            *last_ = {};
    } catch (const ImageError& error) {
        *last_ = {};
        throw ImageGone(name_, error.what());
    } catch (const ImageLost& error) {
        *last_ = {};
        throw ImageGone(name_, error.what());
    }
}

bool FileImage::writeJpeg(int /*selector*/, Core::IO::Stream& output) const {
    if (!facts_.isPlainJpeg)
        return false;
    try {
        ByteReader reader = bytes_.open();
        Core::ByteArray piece(kPiece);
        while (const std::size_t count = reader.read(piece.data(), piece.size()))
            output.write(piece, 0, count);
    } catch (const ImageError& error) {
        throw ImageGone(name_, error.what());
    }
    return true;
}

/// An image whose alpha was dropped still has one in its file.
void FileImage::decode(std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                       std::uint8_t* alpha) const {
    PixelReader& reader = readerAt(first);
    std::vector<std::uint8_t> unused(facts_.hasAlpha && !hasAlpha() ? width() : 0);
    for (std::int32_t i = 0; i < count; ++i, ++last_->nextRow) {
        reader.readRow(pixels, unused.empty() ? alpha : unused.data());
        pixels += width() * components();
        alpha += hasAlpha() ? width() : 0;
    }
}

PixelReader& FileImage::readerAt(std::int32_t row) const {
    if (last_->image != this || last_->nextRow > row) {
        *last_ = {};
        *last_ = {this, openImage(bytes_.open(), std::numeric_limits<std::uint64_t>::max()), 0};
        const ImageFacts& now = last_->reader->facts();
        if (now.size != facts_.size || now.colorSpace != facts_.colorSpace ||
            now.hasAlpha != facts_.hasAlpha)
            throw ImageError("has changed since it was read; try again");
    }
    std::vector<std::uint8_t> pixels(width() * components());
    std::vector<std::uint8_t> alpha(facts_.hasAlpha ? width() : 0);
    for (; last_->nextRow < row; ++last_->nextRow)
        last_->reader->readRow(pixels.data(), alpha.data());
    return *last_->reader;
}

}  // namespace Images
