#pragma once

#include "Core/ByteArray.h"
#include "Core/Object.h"
#include "Core/SmartPtr.h"
#include "Core/String.h"
#include "Drawing/ColorSpace.h"
#include "Drawing/Export.h"

#include <cstdint>
#include <utility>

namespace Drawing {

struct PixelSize {
    std::int32_t width = 0;
    std::int32_t height = 0;

    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

/// A raster image. A back end may keep the object until its document ends and ask for the pixels
/// only then, so a subclass may decode when asked and let go again.
///
/// The selector, handed through from `IOutputContext::drawImage`, chooses among the versions of
/// an image that has several; images with one version ignore it.
class DRAWING_API Image : public Core::Object {
public:
    ~Image() override;

    /// Equal for images with equal content; the name under which a document shares them. It must
    /// hold no PostScript delimiter.
    [[nodiscard]] const Core::String& getHashKey() const { return hashKey_; }

    [[nodiscard]] virtual PixelSize getPixelSize() const = 0;
    [[nodiscard]] virtual Core::SmartPtr<ColorSpace> getColorSpace() const = 0;
    [[nodiscard]] virtual bool hasAlpha() const = 0;
    /// Rows from the top, 8 bits a component, components of a pixel side by side, no padding.
    [[nodiscard]] virtual Core::ByteArray getPixelBytes(int selector) const = 0;
    /// One byte a pixel, 0 (transparent) to 255 (opaque); empty for an image without alpha.
    [[nodiscard]] virtual Core::ByteArray getAlphaBytes(int selector) const = 0;

    /// Whether pixels that are enlarged run into each other instead of showing as squares. Back
    /// ends without a choice take no notice.
    [[nodiscard]] virtual bool isInterpolated() const;

protected:
    explicit Image(Core::String hashKey) : hashKey_(std::move(hashKey)) {}

private:
    Core::String hashKey_;
};

}  // namespace Drawing
