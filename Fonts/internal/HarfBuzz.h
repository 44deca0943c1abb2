#pragma once

#include <hb-subset.h>
#include <hb.h>

#include <memory>

namespace Fonts {

struct HarfBuzzDeleter {
    void operator()(hb_blob_t* blob) const { hb_blob_destroy(blob); }
    void operator()(hb_buffer_t* buffer) const { hb_buffer_destroy(buffer); }
    void operator()(hb_draw_funcs_t* funcs) const { hb_draw_funcs_destroy(funcs); }
    void operator()(hb_face_t* face) const { hb_face_destroy(face); }
    void operator()(hb_font_funcs_t* funcs) const { hb_font_funcs_destroy(funcs); }
    void operator()(hb_font_t* font) const { hb_font_destroy(font); }
    void operator()(hb_set_t* set) const { hb_set_destroy(set); }
    void operator()(hb_subset_input_t* input) const { hb_subset_input_destroy(input); }
    void operator()(hb_subset_plan_t* plan) const { hb_subset_plan_destroy(plan); }
};

/// One reference to a HarfBuzz object.
template <class T>
using HarfBuzzPtr = std::unique_ptr<T, HarfBuzzDeleter>;

}  // namespace Fonts
