#include "Fonts/internal/OpenTypeColors.h"

#include <hb-ot.h>

namespace Fonts {

namespace {

/// The colour of the text, as fonts number it.
constexpr unsigned kTextColor = 0xFFFF;

std::optional<PaletteColor> colorOf(hb_face_t* face, unsigned index) {
    hb_color_t color = 0;
    unsigned count = 1;
    hb_ot_color_palette_get_colors(face, 0, index, &count, &color);
    if (index == kTextColor || count == 0)
        return std::nullopt;
    const auto byte = [](unsigned value) { return static_cast<std::uint8_t>(value); };
    return PaletteColor{byte(hb_color_get_red(color)), byte(hb_color_get_green(color)),
                        byte(hb_color_get_blue(color)), byte(hb_color_get_alpha(color))};
}

std::vector<GlyphLayer> layersOf(hb_face_t* face, std::uint32_t glyph) {
    unsigned count = hb_ot_color_glyph_get_layers(face, glyph, 0, nullptr, nullptr);
    std::vector<hb_ot_color_layer_t> found(count);
    if (count > 0)
        hb_ot_color_glyph_get_layers(face, glyph, 0, &count, found.data());
    std::vector<GlyphLayer> layers;
    layers.reserve(found.size());
    for (const hb_ot_color_layer_t& layer : found)
        layers.push_back({layer.glyph, colorOf(face, layer.color_index)});
    return layers;
}

std::optional<GlyphPicture> pictureOf(hb_font_t* font, std::uint32_t glyph, float unit) {
    const HarfBuzzPtr<hb_blob_t> png(hb_ot_color_glyph_reference_png(font, glyph));
    unsigned length = 0;
    const char* bytes = hb_blob_get_data(png.get(), &length);
    hb_glyph_extents_t box{};
    if (length == 0 || hb_font_get_glyph_extents(font, glyph, &box) == 0)
        return std::nullopt;
    return GlyphPicture{Core::ByteArray(bytes, length), static_cast<float>(box.x_bearing) * unit,
                        static_cast<float>(box.y_bearing) * unit,
                        static_cast<float>(box.width) * unit,
                        static_cast<float>(-box.height) * unit};
}

/// Whether a table says how glyphs look in a way that is not read here.
bool hasPaintings(hb_face_t* face) {
    constexpr unsigned kFirstWithPaintings = 1;
    const HarfBuzzPtr<hb_blob_t> table(hb_face_reference_table(face, HB_TAG('C', 'O', 'L', 'R')));
    unsigned length = 0;
    const char* bytes = hb_blob_get_data(table.get(), &length);
    return length > 1 && static_cast<unsigned char>(bytes[1]) >= kFirstWithPaintings;
}

}  // namespace

GlyphColors openTypeColors(hb_font_t* font, std::uint32_t glyph, float unit) {
    hb_face_t* face = hb_font_get_face(font);
    GlyphColors colors;
    if (hb_ot_color_has_layers(face) != 0)
        colors.layers = layersOf(face, glyph);
    if (colors.layers.empty() && hb_ot_color_has_png(face) != 0)
        colors.picture = pictureOf(font, glyph, unit);
    colors.isSimplified = colors.layers.empty() && !colors.picture && hasPaintings(face);
    return colors;
}

}  // namespace Fonts
