// Pictures from arrays.

#include "native/Arrays.h"

#include "Drawing/RasterImage.h"
#include "Drawing/TintedImage.h"
#include "Images/LoadImage.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace psgraphics::python {

using Core::SmartPtr;
using namespace Drawing;

namespace {

/// A picture in memory, whose enlarged pixels may run into each other.
class ArrayImage : public RasterImage {
public:
    ArrayImage(PixelSize size, ColorSpaceType space, Core::ByteArray pixels, Core::ByteArray alpha,
               bool interpolated)
        : RasterImage(size, space, std::move(pixels), std::move(alpha)),
          interpolated_(interpolated) {}

    [[nodiscard]] bool isInterpolated() const override { return interpolated_; }

private:
    bool interpolated_;
};

/// What an array of so many components a pixel holds.
struct Layout {
    ColorSpaceType space;
    bool hasAlpha;
};

Layout layoutOf(const py::array& array, std::optional<ColorSpaceType> space) {
    const py::ssize_t components = array.ndim() == 3 ? array.shape(2) : 1;
    const bool isBool = array.dtype().kind() == 'b';
    const Layout byCount[] = {{isBool ? ColorSpaceType::oneBit : ColorSpaceType::gray, false},
                              {ColorSpaceType::gray, true},
                              {ColorSpaceType::rgb, false},
                              {ColorSpaceType::rgb, true},
                              {ColorSpaceType::cmyk, true}};
    if (array.ndim() < 2 || array.ndim() > 3 || components < 1 || components > 5)
        throw py::value_error(
            "pixels must be an array of shape (height, width) or (height, width, "
            "components) with 1 to 5 components");
    if (!space)
        return byCount[components - 1];
    const int wanted = ColorSpace(*space).getComponentCount();
    if (components != wanted && components != wanted + 1)
        throw py::value_error("pixels of this colour space have " + std::to_string(wanted) +
                              " components, or one more for alpha, not " +
                              std::to_string(components));
    return {*space, components == wanted + 1};
}

/// Takes the last component of each pixel out.
Core::ByteArray splitAlpha(Core::ByteArray& pixels, std::size_t count, std::size_t components) {
    Core::ByteArray alpha(count);
    const std::size_t colors = components - 1;
    std::uint8_t* to = pixels.data();
    const std::uint8_t* from = pixels.data();
    for (std::size_t i = 0; i < count; ++i, from += components, to += colors) {
        alpha[i] = from[colors];
        std::copy_n(from, colors, to);
    }
    pixels.resize(count * colors);
    return alpha;
}

ArrayOf<std::uint8_t> bytesOf(const py::array& array) {
    const char kind = array.dtype().kind();
    if (kind == 'b')
        return ArrayOf<std::uint8_t>(
            array.attr("__mul__")(py::module_::import("numpy").attr("uint8")(255)));
    if (kind != 'u' || array.itemsize() != 1)
        throw py::type_error(
            "pixels must be of type uint8 or bool; bring floats from 0 to 1 to bytes by "
            "(pixels * 255).round().astype('uint8')");
    return ArrayOf<std::uint8_t>(array);
}

bool isOpaque(const Core::ByteArray& alpha) {
    return std::all_of(alpha.begin(), alpha.end(), [](std::uint8_t a) { return a == 255; });
}

SmartPtr<RasterImage> imageFrom(const py::array& array,
                                const std::optional<ArrayOf<std::uint8_t>>& mask,
                                std::optional<ColorSpaceType> space, bool interpolated) {
    const Layout layout = layoutOf(array, space);
    const ArrayOf<std::uint8_t> bytes = bytesOf(array);
    const PixelSize size{static_cast<std::int32_t>(array.shape(1)),
                         static_cast<std::int32_t>(array.shape(0))};
    const auto count = static_cast<std::size_t>(array.shape(0) * array.shape(1));
    const auto components = array.ndim() == 3 ? static_cast<std::size_t>(array.shape(2)) : 1;
    if (layout.hasAlpha && mask)
        throw py::value_error("the pixels have alpha of their own already");
    if (mask && static_cast<std::size_t>(mask->size()) != count)
        throw py::value_error("alpha must have the height and width of the pixels");
    Core::ByteArray pixels(bytes.data(), static_cast<std::size_t>(bytes.size()));
    Core::ByteArray alpha;
    const py::gil_scoped_release unlocked;
    if (mask)
        alpha = Core::ByteArray(mask->data(), count);
    else if (layout.hasAlpha)
        alpha = splitAlpha(pixels, count, components);
    if (isOpaque(alpha))
        alpha = {};
    return Core::makeObject<ArrayImage>(size, layout.space, std::move(pixels), std::move(alpha),
                                        interpolated);
}

std::pair<std::int32_t, std::int32_t> sizeOf(const Image& image) {
    const PixelSize size = image.getPixelSize();
    return {size.width, size.height};
}

py::array arrayOf(const Core::ByteArray& bytes, const Image& image, int components) {
    std::vector<py::ssize_t> shape{image.getPixelSize().height, image.getPixelSize().width};
    if (components > 1)
        shape.push_back(components);
    return py::array_t<std::uint8_t>(shape, bytes.data());
}

SmartPtr<Image> imageFromFile(const py::object& path, std::uint64_t mostPixels) {
    const auto name = py::module_::import("os").attr("fsdecode")(path).cast<Core::String>();
    const py::gil_scoped_release unlocked;
    return Images::loadImage(name, mostPixels).image;
}

SmartPtr<Image> imageFromBytes(const py::bytes& file, const Core::String& name,
                               std::uint64_t mostPixels) {
    const auto bytes = static_cast<std::string_view>(file);
    const py::gil_scoped_release unlocked;
    return Images::loadImage(bytes, name, mostPixels).image;
}

}  // namespace

void bindImages(py::module_& module) {
    py::class_<Image, SmartPtr<Image>>(module, "Image", "A picture.")
        .def_static("from_file", &imageFromFile, py::arg("path"),
                    py::arg("most_pixels") = Images::kUsualMostPixels,
                    "The picture of a PNG, JPEG, GIF or WebP file, upright and in sRGB. The file "
                    "is read again when the picture is drawn.")
        .def_static("from_bytes", &imageFromBytes, py::arg("file"), py::arg("name") = "image",
                    py::arg("most_pixels") = Images::kUsualMostPixels,
                    "The same from the bytes of such a file; `name` is for messages.")
        .def_property_readonly("size", &sizeOf, "Width and height in pixels.")
        .def_property_readonly("color_space",
                               [](const Image& self) { return self.getColorSpace()->getType(); })
        .def_property_readonly("has_alpha", &Image::hasAlpha)
        .def_property_readonly("interpolated", &Image::isInterpolated,
                               "Whether pixels that are enlarged run into each other.")
        .def_property_readonly("key", &Image::getHashKey, "Equal for pictures of equal content.")
        .def(
            "pixels",
            [](const Image& self, int selector) {
                return arrayOf(self.getPixelBytes(selector), self,
                               self.getColorSpace()->getComponentCount());
            },
            py::arg("selector") = 0, "A new array of the colours.")
        .def(
            "alpha",
            [](const Image& self, int selector) -> py::object {
                if (!self.hasAlpha())
                    return py::none();
                return arrayOf(self.getAlphaBytes(selector), self, 1);
            },
            py::arg("selector") = 0, "A new array of the alpha values, or None.");
    py::class_<RasterImage, Image, SmartPtr<RasterImage>>(
        module, "RasterImage",
        "A picture of an array of type uint8 or bool, rows from the top. One component is grey, or "
        "black and white if bool; two are grey and alpha, three RGB, four RGB and alpha, five CMYK "
        "and alpha; `space` tells otherwise.")
        .def(py::init([](const py::array& pixels, const std::optional<ArrayOf<std::uint8_t>>& alpha,
                         std::optional<ColorSpaceType> space, bool interpolated) {
                 return imageFrom(pixels, alpha, space, interpolated);
             }),
             py::arg("pixels"), py::arg("alpha") = py::none(), py::arg("space") = py::none(),
             py::arg("interpolated") = false);
    py::class_<TintedImage, Image, SmartPtr<TintedImage>>(
        module, "TintedImage",
        "A picture in other colours: `ranges` has for each component what 0 and 255 become, as "
        "numbers from 0 to 1.")
        .def(py::init([](const SmartPtr<Image>& original,
                         const std::vector<std::pair<double, double>>& pairs) {
                 std::vector<TintedImage::Range> ranges;
                 ranges.reserve(pairs.size());
                 for (const auto& [low, high] : pairs)
                     ranges.push_back({low, high});
                 return Core::makeObject<TintedImage>(original, std::move(ranges));
             }),
             py::arg("original").none(false), py::arg("ranges"));
}

}  // namespace psgraphics::python
