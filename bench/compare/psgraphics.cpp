// The library itself, through its drawing interface alone, with either of its documents.

#include "Core/FileStream.h"
#include "Drawing/Brush.h"
#include "Drawing/Font.h"
#include "Drawing/GradientBrush.h"
#include "Drawing/Path.h"
#include "Drawing/RasterImage.h"
#include "Drawing/Stroke.h"
#include "PS/PSDocument.h"
#include "Print/PrintDocument.h"
#include "bench/compare/Workload.h"

#include <algorithm>
#include <vector>

namespace {

using Core::makeObject;
using Core::SmartPtr;

SmartPtr<Drawing::Color> colour(const bench::Colour& colour) {
    const auto byte = [](double part) { return static_cast<std::uint8_t>(part * 255); };
    return makeObject<Drawing::RGBColor>(byte(colour.red), byte(colour.green), byte(colour.blue));
}

SmartPtr<Drawing::Brush> brush(const bench::Colour& paint) {
    return makeObject<Drawing::SolidColorBrush>(colour(paint));
}

SmartPtr<Drawing::Stroke> stroke(const bench::Colour& colour, double width) {
    return makeObject<Drawing::Stroke>(brush(colour), static_cast<float>(width));
}

/// `Document`: `PSDocument` or `PrintDocument`.
template <class Document>
class Library : public bench::Backend {
public:
    explicit Library(const char* file)
        : output_(makeObject<Core::IO::FileStream>(file, true, true, true)),
          document_(makeObject<Document>(output_, true)) {}

    void beginPage() override {
        document_->startPage({bench::kPageWidth, bench::kPageHeight});
        document_->setTransform({});
    }
    void endPage() override { document_->endPage(); }
    void draw(const bench::Rectangle& r) override {
        document_->setFill(brush(r.fill));
        document_->setStroke(stroke(r.stroke, r.lineWidth));
        document_->drawRectangle(static_cast<float>(r.x), static_cast<float>(r.y),
                                 static_cast<float>(r.width), static_cast<float>(r.height), 0, 0);
    }
    void draw(const bench::Curves& c) override {
        const auto path = makeObject<Drawing::Path>();
        const auto at = [&](std::size_t i) { return static_cast<float>(c.coordinates[i]); };
        path->moveTo(at(0), at(1));
        for (std::size_t i = 2; i < c.coordinates.size(); i += 6)
            path->curveTo(at(i), at(i + 1), at(i + 2), at(i + 3), at(i + 4), at(i + 5));
        document_->setFill(nullptr);
        document_->setStroke(stroke(c.stroke, c.lineWidth));
        document_->drawPath(path);
    }
    void setFont(const char* family) override {
        for (int size = 6; size < 22; ++size)
            fonts_.push_back(makeObject<Drawing::Font>(family, static_cast<float>(size)));
    }
    void draw(const bench::Label& label) override {
        document_->setFont(fonts_[static_cast<std::size_t>(label.size) - 6]);
        document_->setStroke(nullptr);
        document_->setFill(brush(label.fill));
        document_->drawText(Core::String(label.text), 0, static_cast<float>(label.x),
                            static_cast<float>(label.y), 0, false);
    }
    void draw(const bench::Ramp& r) override {
        document_->setStroke(nullptr);
        document_->setFill(rampBrush(r));
        document_->drawRectangle(static_cast<float>(r.x), static_cast<float>(r.y),
                                 static_cast<float>(r.width), static_cast<float>(r.height), 0, 0);
    }
    void setImage(const bench::Pixels& pixels) override {
        image_ = makeObject<Drawing::RasterImage>(
            Drawing::PixelSize{pixels.side, pixels.side}, Drawing::ColorSpaceType::rgb,
            Core::ByteArray(pixels.bytes.data(), pixels.bytes.size()));
    }
    void placeImage() override {
        const auto side = static_cast<float>(image_->getPixelSize().width);
        const float scale = 512 / side;
        document_->setTransform({scale, 0, 0, scale, 40, 40});
        document_->drawImage(image_, 0, 0, side, side, 0);
    }
    void finish() override {
        document_->endDocument();
        output_->close();
    }

private:
    static SmartPtr<Drawing::Brush> rampBrush(const bench::Ramp& r) {
        const auto number = [](double value) { return static_cast<float>(value); };
        const Core::Vector<Drawing::StopPoint> stops{{0, colour(r.from)}, {1, colour(r.to)}};
        if (!r.isRadial)
            return makeObject<Drawing::LinearGradientBrush>(
                Drawing::XPointF{number(r.x), number(r.y)},
                Drawing::XPointF{number(r.x + r.width), number(r.y + r.height)}, stops);
        return makeObject<Drawing::RadialGradientBrush>(
            Drawing::XPointF{number(r.x + r.width / 2), number(r.y + r.height / 2)}, 0.0F,
            number(std::min(r.width, r.height) / 2), stops);
    }

    SmartPtr<Core::IO::FileStream> output_;
    std::vector<SmartPtr<Drawing::Font>> fonts_;
    SmartPtr<Drawing::Image> image_;
    SmartPtr<Drawing::IOutputContext> document_;
};

}  // namespace

int main(int argc, char** argv) {
#ifdef PSGRAPHICS_PRINT
    return bench::run<Library<Drawing::Print::PrintDocument>>(argc, argv);
#else
    return bench::run<Library<Drawing::PS::PSDocument>>(argc, argv);
#endif
}
