// The library itself, through its drawing interface alone.

#include "Core/FileStream.h"
#include "Drawing/Brush.h"
#include "Drawing/Path.h"
#include "Drawing/Stroke.h"
#include "PS/PSDocument.h"
#include "bench/compare/Workload.h"

namespace {

using Core::makeObject;
using Core::SmartPtr;

SmartPtr<Drawing::Brush> brush(const bench::Colour& colour) {
    const auto byte = [](double part) { return static_cast<std::uint8_t>(part * 255); };
    return makeObject<Drawing::SolidColorBrush>(
        makeObject<Drawing::RGBColor>(byte(colour.red), byte(colour.green), byte(colour.blue)));
}

SmartPtr<Drawing::Stroke> stroke(const bench::Colour& colour, double width) {
    return makeObject<Drawing::Stroke>(brush(colour), static_cast<float>(width));
}

class Library : public bench::Backend {
public:
    explicit Library(const char* file)
        : output_(makeObject<Core::IO::FileStream>(file, true, true, true)),
          document_(makeObject<Drawing::PS::PSDocument>(output_.get(), false)) {}

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
    void finish() override {
        document_->endDocument();
        output_->close();
    }

private:
    SmartPtr<Core::IO::FileStream> output_;
    SmartPtr<Drawing::IOutputContext> document_;
};

}  // namespace

int main(int argc, char** argv) {
    return bench::run<Library>(argc, argv);
}
