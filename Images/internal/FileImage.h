#pragma once

#include "Drawing/EncodedImage.h"
#include "Images/RowImage.h"
#include "Images/internal/PixelReader.h"

#include <memory>
#include <string>

namespace Images {

class FileImage;

/// Keeps the decoder that was used last, so that an image that is asked for in strips is decoded
/// once, whereas of all others nothing is kept.
struct LastDecoder {
    const FileImage* image = nullptr;
    std::unique_ptr<PixelReader> reader;
    std::int32_t nextRow = 0;
};

/// A PNG or JPEG file that is decoded whenever its pixels are asked for.
class FileImage : public RowImage, public Drawing::EncodedImage {
public:
    /// Decodes the file once to make sure that it can be, and to learn its key: a 128-bit hash of
    /// size, colour space and pixels. Alpha that hides nothing is dropped. `name` is for messages
    /// of later. Throws `ImageError`.
    static Core::SmartPtr<FileImage> make(ImageBytes bytes, const std::string& name,
                                          std::uint64_t mostPixels,
                                          std::shared_ptr<LastDecoder> last);
    ~FileImage() override;

    [[nodiscard]] const ImageFacts& facts() const { return facts_; }
    [[nodiscard]] PixelRect visiblePart() const override { return visiblePart_; }
    void readRows(std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                  std::uint8_t* alpha) const override;
    bool writeJpeg(int selector, Core::IO::Stream& output) const override;

private:
    template <class T, class... Arguments>
    friend Core::SmartPtr<T> Core::makeObject(Arguments&&... arguments);

    FileImage(Core::String key, const ImageFacts& facts, const PixelRect& visiblePart,
              bool isOpaque, ImageBytes bytes, std::string name, std::shared_ptr<LastDecoder> last);

    [[nodiscard]] PixelReader& readerAt(std::int32_t row) const;
    void decode(std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                std::uint8_t* alpha) const;

    ImageBytes bytes_;
    ImageFacts facts_;
    PixelRect visiblePart_;
    std::string name_;
    std::shared_ptr<LastDecoder> last_;
};

}  // namespace Images
