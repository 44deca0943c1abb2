#include "psrender/image/DerivedImages.h"

#include "Core/StringFormatStream.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace psrender::image {

using Images::RowImage;
using Images::rowsOf;

namespace {

/// Which pixels of a row or column of the original one pixel covers, and how much of each.
struct Span {
    std::int32_t first = 0;
    std::vector<float> shares;  ///< add up to 1
};

Span spanOf(std::int32_t index, std::int32_t count, std::int32_t original) {
    const double step = static_cast<double>(original) / count;
    const double begin = index * step;
    const double end = std::min<double>((index + 1) * step, original);
    Span span{static_cast<std::int32_t>(begin), {}};
    for (std::int32_t i = span.first; i < end; ++i)
        span.shares.push_back(static_cast<float>(
            (std::min<double>(end, i + 1) - std::max<double>(begin, i)) / (end - begin)));
    return span;
}

class ReducedImage : public RowImage {
public:
    ReducedImage(Core::SmartPtr<RowImage> image, Drawing::PixelSize size)
        : RowImage(Core::StringFormatStream(u"{0}-{1}x{2}")
                       << image->getHashKey() << size.width << size.height,
                   size, image->getColorSpace()->getType(), image->hasAlpha()),
          image_(std::move(image)) {}

    void readRows(std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                  std::uint8_t* alpha) const override {
        Accumulator sums(*this);
        for (std::int32_t row = first; row < first + count; ++row) {
            sums.average(row);
            sums.write(pixels, alpha);
            pixels += width() * components();
            alpha += hasAlpha() ? width() : 0;
        }
    }

private:
    /// Averages rows. Colours count by their alpha, so that what cannot be seen gives no fringe.
    class Accumulator {
    public:
        explicit Accumulator(const ReducedImage& reduced)
            : reduced_(reduced),
              image_(*reduced.image_),
              colors_(image_.width() * image_.components()),
              alphas_(image_.hasAlpha() ? image_.width() : 0) {
            for (std::int32_t x = 0; x < reduced.getPixelSize().width; ++x)
                columns_.push_back(
                    spanOf(x, reduced.getPixelSize().width, image_.getPixelSize().width));
        }

        void average(std::int32_t row) {
            const Span rows =
                spanOf(row, reduced_.getPixelSize().height, image_.getPixelSize().height);
            sums_.assign(columns_.size() * (image_.components() + 1), 0);
            std::int32_t source = rows.first;
            for (const float share : rows.shares) {
                read(source++);
                add(share);
            }
        }

        void write(std::uint8_t* pixels, std::uint8_t* alpha) const {
            const float* sum = sums_.data();
            for (std::size_t x = 0; x < columns_.size(); ++x) {
                const float weight = sum[image_.components()];
                for (std::size_t i = 0; i < image_.components(); ++i)
                    *pixels++ = weight > 0 ? rounded(sum[i] / weight) : std::uint8_t{0};
                sum += image_.components() + 1;
                if (image_.hasAlpha())
                    *alpha++ = rounded(weight);
            }
        }

    private:
        static std::uint8_t rounded(float value) {
            return static_cast<std::uint8_t>(std::clamp(value + 0.5F, 0.0F, 255.0F));
        }

        void read(std::int32_t row) {
            if (row == row_)
                return;
            image_.readRows(row, 1, colors_.data(), alphas_.data());
            row_ = row;
        }

        void add(float rowShare) {
            float* sum = sums_.data();
            for (const Span& span : columns_) {
                auto at = static_cast<std::size_t>(span.first);
                for (const float share : span.shares)
                    addPixel(sum, at++, share * rowShare);
                sum += image_.components() + 1;
            }
        }

        void addPixel(float* sum, std::size_t at, float share) const {
            const float weight =
                image_.hasAlpha() ? share * static_cast<float>(alphas_[at]) : share;
            const std::uint8_t* color = colors_.data() + at * image_.components();
            for (std::size_t i = 0; i < image_.components(); ++i)
                *sum++ += weight * static_cast<float>(color[i]);
            *sum += weight;
        }

        const ReducedImage& reduced_;
        const RowImage& image_;
        std::vector<Span> columns_;
        std::vector<std::uint8_t> colors_;
        std::vector<std::uint8_t> alphas_;
        std::vector<float> sums_;  ///< a pixel's components and the weight they came with
        std::int32_t row_ = -1;
    };

    Core::SmartPtr<RowImage> image_;
};

}  // namespace

Core::SmartPtr<Drawing::Image> reduced(const Core::SmartPtr<Drawing::Image>& image,
                                       Drawing::PixelSize size) {
    if (size == image->getPixelSize())
        return image;
    return Core::makeObject<ReducedImage>(rowsOf(image), size);
}

}  // namespace psrender::image
