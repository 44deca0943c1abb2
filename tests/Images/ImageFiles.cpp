#include "tests/Images/ImageFiles.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>

#include <gif_lib.h>
#include <jpeglib.h>
#include <lcms2.h>
#include <png.h>
#include <webp/encode.h>

namespace Images::tests {

namespace {

/// A directory with nothing but the orientation in it.
Bytes exifOf(int orientation) {
    return {'M',  'M',  0, 42, 0, 0, 0, 8, 0, 1,
            0x01, 0x12, 0, 3,  0, 0, 0, 1, 0, static_cast<std::uint8_t>(orientation),
            0,    0,    0, 0,  0, 0};
}

void append(png_structp png, png_bytep data, std::size_t size) {
    static_cast<std::string*>(png_get_io_ptr(png))->append(reinterpret_cast<char*>(data), size);
}

void describe(png_structp png, png_infop info, const PngFile& file) {
    png_set_IHDR(png, info, static_cast<png_uint_32>(file.width),
                 static_cast<png_uint_32>(file.height), file.depth, file.colorType,
                 file.isInterlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (file.colorType == PNG_COLOR_TYPE_PALETTE) {
        const std::array<png_color, 2> palette{png_color{255, 0, 0}, png_color{0, 0, 255}};
        const png_byte clear = 51;
        png_set_PLTE(png, info, palette.data(), 2);
        png_set_tRNS(png, info, &clear, 1, nullptr);
    }
    Bytes exif = exifOf(file.orientation);
    if (file.orientation != 1)
        png_set_eXIf_1(png, info, static_cast<png_uint_32>(exif.size()), exif.data());
    const auto dots = static_cast<png_uint_32>(file.dotsPerMetre);
    if (dots != 0)
        png_set_pHYs(png, info, dots, dots, PNG_RESOLUTION_METER);
    if (file.gamma != 0)
        png_set_gAMA(png, info, file.gamma);
    if (!file.profile.empty())
        png_set_iCCP(png, info, "test", 0, reinterpret_cast<png_const_bytep>(file.profile.data()),
                     static_cast<png_uint_32>(file.profile.size()));
}

}  // namespace

Bytes noise(std::size_t count) {
    std::mt19937 random(7);
    Bytes bytes(count);
    for (auto& byte : bytes)
        byte = static_cast<std::uint8_t>(random());
    return bytes;
}

std::string encode(const PngFile& file) {
    std::string result;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, &result, append, nullptr);
    describe(png, info, file);
    Bytes samples = file.samples;
    std::vector<png_bytep> rows;
    png_write_info(png, info);
    for (std::size_t i = 0; i < static_cast<std::size_t>(file.height); ++i)
        rows.push_back(samples.data() + i * png_get_rowbytes(png, info));
    png_write_image(png, rows.data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return result;
}

std::string encode(const JpegFile& file) {
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char* memory = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &memory, &size);
    jpeg.image_width = static_cast<JDIMENSION>(file.width);
    jpeg.image_height = static_cast<JDIMENSION>(file.height);
    jpeg.input_components = file.components;
    jpeg.in_color_space = file.components == 1   ? JCS_GRAYSCALE
                          : file.components == 3 ? JCS_RGB
                                                 : JCS_CMYK;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, 100, TRUE);
    jpeg.comp_info[0].h_samp_factor = jpeg.comp_info[0].v_samp_factor = 1;
    jpeg.write_Adobe_marker = file.hasAdobeMarker ? TRUE : FALSE;
    if (file.isProgressive)
        jpeg_simple_progression(&jpeg);
    jpeg_start_compress(&jpeg, TRUE);
    Bytes exif{'E', 'x', 'i', 'f', 0, 0};
    const Bytes directory = exifOf(file.orientation);
    exif.insert(exif.end(), directory.begin(), directory.end());
    jpeg_write_marker(&jpeg, JPEG_APP0 + 1, exif.data(), static_cast<unsigned>(exif.size()));
    Bytes samples = file.samples;
    for (JSAMPROW row = samples.data(); jpeg.next_scanline < jpeg.image_height;
         row += file.width * file.components)
        jpeg_write_scanlines(&jpeg, &row, 1);
    jpeg_finish_compress(&jpeg);
    std::string result(reinterpret_cast<char*>(memory), size);
    jpeg_destroy_compress(&jpeg);
    std::free(memory);  // NOLINT(cppcoreguidelines-no-malloc): the library allocates so
    return result;
}

std::string encode(const GifFile& file) {
    std::string bytes;
    const auto append = [](GifFileType* gif, const GifByteType* from, int count) {
        static_cast<std::string*>(gif->UserData)
            ->append(reinterpret_cast<const char*>(from), static_cast<std::size_t>(count));
        return count;
    };
    GifColorType colors[] = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 255}};
    ColorMapObject* map = GifMakeMapObject(4, colors);
    GifFileType* gif = EGifOpen(&bytes, append, nullptr);
    EGifSetGifVersion(gif, true);
    EGifPutScreenDesc(gif, file.width, file.height, 2, 0, map);
    if (file.clearIndex >= 0) {
        const GraphicsControlBlock control{DISPOSAL_UNSPECIFIED, false, 0, file.clearIndex};
        GifByteType extension[4];
        EGifGCBToExtension(&control, extension);
        EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, sizeof extension, extension);
    }
    EGifPutImageDesc(gif, file.left, file.top, 4, 8, file.isInterlaced, nullptr);
    Bytes indices = file.indices;
    const int order[] = {0, 4, 2, 6, 1, 3, 5, 7};
    for (int i = 0; i < 8; ++i)
        EGifPutLine(gif, indices.data() + 4 * (file.isInterlaced ? order[i] : i), 4);
    EGifCloseFile(gif, nullptr);
    GifFreeMapObject(map);
    return bytes;
}

std::string encode(const WebpFile& file) {
    std::uint8_t* memory = nullptr;
    const std::size_t size = WebPEncodeLosslessRGBA(file.samples.data(), file.width, file.height,
                                                    4 * file.width, &memory);
    std::string bytes(reinterpret_cast<const char*>(memory), size);
    WebPFree(memory);
    return bytes;
}

std::string profileOf(std::optional<double> gamma) {
    cmsToneCurve* curve = cmsBuildGamma(nullptr, gamma.value_or(1));
    const std::array<cmsToneCurve*, 3> curves{curve, curve, curve};
    const cmsCIExyY white{0.3127, 0.3290, 1};
    const cmsCIExyYTRIPLE primaries{{0.64, 0.33, 1}, {0.30, 0.60, 1}, {0.15, 0.06, 1}};
    cmsHPROFILE profile =
        gamma ? cmsCreateRGBProfile(&white, &primaries, curves.data()) : cmsCreate_sRGBProfile();
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    std::string bytes(size, '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    cmsFreeToneCurve(curve);
    return bytes;
}

}  // namespace Images::tests
