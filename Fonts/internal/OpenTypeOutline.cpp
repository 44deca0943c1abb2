#include "Fonts/internal/OpenTypeOutline.h"

namespace Fonts {

namespace {

OutlineRecorder& recorder(void* data) {
    return *static_cast<OutlineRecorder*>(data);
}

void moveTo(hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x, float y, void*) {
    recorder(data).moveTo(x, y);
}

void lineTo(hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x, float y, void*) {
    recorder(data).lineTo(x, y);
}

void curveTo(hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x1, float y1, float x2, float y2,
             float x3, float y3, void*) {
    recorder(data).curveTo(x1, y1, x2, y2, x3, y3);
}

void close(hb_draw_funcs_t*, void* data, hb_draw_state_t*, void*) {
    recorder(data).close();
}

/// Without a function for quadratic curves they arrive as cubic ones.
HarfBuzzPtr<hb_draw_funcs_t> makeFunctions() {
    HarfBuzzPtr<hb_draw_funcs_t> functions(hb_draw_funcs_create());
    hb_draw_funcs_set_move_to_func(functions.get(), moveTo, nullptr, nullptr);
    hb_draw_funcs_set_line_to_func(functions.get(), lineTo, nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(functions.get(), curveTo, nullptr, nullptr);
    hb_draw_funcs_set_close_path_func(functions.get(), close, nullptr, nullptr);
    hb_draw_funcs_make_immutable(functions.get());
    return functions;
}

}  // namespace

OutlineRecorder openTypeOutline(hb_font_t* font, std::uint32_t glyph, float unit) {
    static const HarfBuzzPtr<hb_draw_funcs_t> functions = makeFunctions();
    OutlineRecorder outline(unit);
#if HB_VERSION_ATLEAST(7, 0, 0)
    hb_font_draw_glyph(font, glyph, functions.get(), &outline);
#else
    hb_font_get_glyph_shape(font, glyph, functions.get(), &outline);
#endif
    return outline;
}

}  // namespace Fonts
