#include "psrender/svg/elements/ImageReader.h"

#include "Images/ImageError.h"
#include "psrender/base/InputError.h"
#include "psrender/base/Warnings.h"
#include "psrender/image/DerivedImages.h"
#include "psrender/image/Upright.h"
#include "psrender/svg/elements/Canvas.h"
#include "psrender/svg/image/ImageLinks.h"
#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/ViewBox.h"
#include "psrender/svg/xml/LengthReader.h"
#include "psrender/svg/xml/XmlTree.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace psrender::svg {

using Images::PixelRect;
using Images::UprightImage;
using scene::Affine;
using scene::Point;
using scene::Rect;

namespace {

struct Interval {
    double begin;
    double end;
};

constexpr double kPixelsPerPoint = 4.0 / 3;

/// What of 0 to `side` lies in the area, in whole pixels, but at least one.
Interval visiblePixels(double begin, double end, double side) {
    const double first = std::clamp(std::round(begin), 0.0, side - 1);
    return {first, std::clamp(std::round(end), first + 1, side)};
}

/// The part of the upright picture that shows, in its pixels.
Rect visiblePart(const UprightImage& image, const Affine& toArea, const Rect& area) {
    const Affine back = toArea.inverse();
    const Point first = back.apply({area.x, area.y});
    const Point last = back.apply({area.x + area.width, area.y + area.height});
    const Interval x = visiblePixels(first.x, last.x, image.width);
    const Interval y = visiblePixels(first.y, last.y, image.height);
    return {x.begin, y.begin, x.end - x.begin, y.end - y.begin};
}

/// The same part in the pixels as they are stored.
PixelRect storedPart(const UprightImage& image, const Rect& part) {
    const Drawing::PixelSize size = image.image->getPixelSize();
    const Affine toStored = Affine::scaling(size.width, size.height) *
                            image::uprightOf(image).inverse() *
                            Affine::scaling(1 / image.width, 1 / image.height);
    const Point a = toStored.apply({part.x, part.y});
    const Point b = toStored.apply({part.x + part.width, part.y + part.height});
    const auto whole = [](double value) { return static_cast<std::int32_t>(std::lround(value)); };
    return {whole(std::min(a.x, b.x)), whole(std::min(a.y, b.y)), whole(std::abs(a.x - b.x)),
            whole(std::abs(a.y - b.y))};
}

/// The area of an image that has only one side, or none, by its own proportions.
Rect imageArea(const LengthReader& lengths, const UprightImage& image) {
    const auto width = lengths.findSize("width", Axis::horizontal);
    const auto height = lengths.findSize("height", Axis::vertical);
    const double scale = width ? *width / image.width : height ? *height / image.height : 1;
    return {lengths.get("x", Axis::horizontal), lengths.get("y", Axis::vertical),
            width.value_or(image.width * scale), height.value_or(image.height * scale)};
}

/// Where the picture would lie, and what of it lies in the area.
scene::Picture placed(const UprightImage& image, const Affine& toArea, const Rect& area) {
    const Rect part = visiblePart(image, toArea, area);
    const bool isCut = part.width < image.width || part.height < image.height;
    const Point begin = toArea.apply({isCut ? part.x : 0, isCut ? part.y : 0});
    const Point end = toArea.apply(
        {isCut ? part.x + part.width : image.width, isCut ? part.y + part.height : image.height});
    // What is cut is cut in whole pixels and then laid out to the very edges of the area.
    const double left = std::max(begin.x, area.x);
    const double top = std::max(begin.y, area.y);
    const double right = std::min(end.x, area.x + area.width);
    const double bottom = std::min(end.y, area.y + area.height);
    return {isCut ? image::cropped(image.image, storedPart(image, part)) : image.image,
            Affine{right - left, 0, 0, bottom - top, left, top} * image::uprightOf(image), 1};
}

}  // namespace

const UprightImage* ImageReader::find(std::string_view address, pugi::xml_node element) {
    try {
        return links_.find(address);
    } catch (const Images::ImageLost& error) {
        tree_.fail(element, error.what());
    }
}

/// A drawing is placed like an image of its size.
void ImageReader::drawDrawing(const std::string& text, pugi::xml_node element,
                              const Surroundings& inside) {
    const Drawing* drawing = drawingOf(text);
    if (drawing == nullptr)
        return;
    UprightImage shown;
    shown.width = drawing->width * kPixelsPerPoint;
    shown.height = drawing->height * kPixelsPerPoint;
    const Rect area = imageArea(LengthReader(element, inside.measures, warnings_), shown);
    if (area.width <= 0 || area.height <= 0)
        return;
    const Affine toArea = fitViewBox({0, 0, drawing->width, drawing->height}, area,
                                     element.attribute("preserveAspectRatio").value());
    const auto seen = Rect{0, 0, drawing->width, drawing->height}.mapped(toArea).common(area);
    if (!seen || !canvas_.canShow(inside.toPage * toArea))
        return;
    canvas_.items().group(1, scene::rectangleClip(*seen, inside.toPage),
                          [&] { canvas_.place(drawing->symbol, inside.toPage * toArea, element); });
}

/// Null for what cannot be read.
const ImageReader::Drawing* ImageReader::drawingOf(const std::string& text) {
    const auto [entry, isNew] = drawings_.try_emplace(&text);
    if (isNew) {
        try {
            scene::Page page = readDrawing_(text);
            const PageItems::Size size{page.items.size(), 0};
            entry->second = Drawing{
                {std::make_shared<const scene::ItemList>(scene::ItemList{page.items}), size, 0},
                page.width,
                page.height};
        } catch (const InputError& error) {
            warnings_.add(std::string("left out (<image>): ") + error.what());
        }
    }
    return entry->second ? &*entry->second : nullptr;
}

void ImageReader::draw(pugi::xml_node element, const Surroundings& inside) {
    const std::string_view address = trimmed(hrefOf(element));
    if (!inside.style.isVisible || address.empty() || !canvas_.canShow(inside.toPage))
        return;
    if (const std::string* drawing = links_.findDrawing(address)) {
        drawDrawing(*drawing, element, inside);
        return;
    }
    const UprightImage* image = find(address, element);
    if (image == nullptr)
        return;
    const Rect area = imageArea(LengthReader(element, inside.measures, warnings_), *image);
    if (area.width <= 0 || area.height <= 0)
        return;
    if (image->isProfileIgnored)
        warnings_.add("colour profiles of CMYK images and damaged ones are ignored (<image>)");
    const Affine toArea = fitViewBox({0, 0, image->width, image->height}, area,
                                     element.attribute("preserveAspectRatio").value());
    if (!canvas_.canShow(toArea) || !canvas_.canShow(inside.toPage * toArea))
        return;
    scene::Picture picture = placed(*image, toArea, area);
    picture.transform = inside.toPage * picture.transform;
    picture.isSmooth = inside.style.hasSmoothImages;
    canvas_.add(std::move(picture), element);
}

}  // namespace psrender::svg
