// The PostScript surface of the general 2-D library that distributions ship.

#include "bench/compare/Workload.h"

#include <algorithm>
#include <cairo/cairo-ps.h>
#include <cstring>

namespace {

class Cairo : public bench::Backend {
public:
    explicit Cairo(const char* file)
        : surface_(cairo_ps_surface_create(file, bench::kPageWidth, bench::kPageHeight)),
          context_(cairo_create(surface_)) {}
    Cairo(const Cairo&) = delete;
    Cairo& operator=(const Cairo&) = delete;
    ~Cairo() override {
        cairo_surface_destroy(image_);
        cairo_destroy(context_);
        cairo_surface_destroy(surface_);
    }

    void beginPage() override {}
    void endPage() override { cairo_show_page(context_); }
    void draw(const bench::Rectangle& r) override {
        cairo_rectangle(context_, r.x, r.y, r.width, r.height);
        setColour(r.fill);
        cairo_fill_preserve(context_);
        stroke(r.stroke, r.lineWidth);
    }
    void draw(const bench::Curves& c) override {
        const auto& p = c.coordinates;
        cairo_move_to(context_, p[0], p[1]);
        for (std::size_t i = 2; i < p.size(); i += 6)
            cairo_curve_to(context_, p[i], p[i + 1], p[i + 2], p[i + 3], p[i + 4], p[i + 5]);
        stroke(c.stroke, c.lineWidth);
    }
    void setFont(const char* family) override {
        cairo_select_font_face(context_, family, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    }
    void draw(const bench::Label& label) override {
        cairo_set_font_size(context_, label.size);
        setColour(label.fill);
        cairo_move_to(context_, label.x, label.y);
        cairo_show_text(context_, label.text);
    }
    void draw(const bench::Ramp& r) override {
        cairo_pattern_t* ramp = makeRamp(r);
        cairo_pattern_add_color_stop_rgb(ramp, 0, r.from.red, r.from.green, r.from.blue);
        cairo_pattern_add_color_stop_rgb(ramp, 1, r.to.red, r.to.green, r.to.blue);
        cairo_rectangle(context_, r.x, r.y, r.width, r.height);
        cairo_set_source(context_, ramp);
        cairo_fill(context_);
        cairo_pattern_destroy(ramp);
    }
    void setImage(const bench::Pixels& pixels) override {
        cairo_surface_destroy(image_);
        image_ = cairo_image_surface_create(CAIRO_FORMAT_RGB24, pixels.side, pixels.side);
        unsigned char* row = cairo_image_surface_get_data(image_);
        const std::uint8_t* from = pixels.bytes.data();
        for (int y = 0; y < pixels.side; ++y, row += cairo_image_surface_get_stride(image_))
            for (int x = 0; x < pixels.side; ++x, from += 3) {
                const std::uint32_t pixel =
                    std::uint32_t{from[0]} << 16 | std::uint32_t{from[1]} << 8 | from[2];
                std::memcpy(row + x * 4, &pixel, sizeof pixel);
            }
        cairo_surface_mark_dirty(image_);
        side_ = pixels.side;
    }
    void placeImage() override {
        cairo_save(context_);
        cairo_translate(context_, 40, 40);
        cairo_scale(context_, 512.0 / side_, 512.0 / side_);
        cairo_set_source_surface(context_, image_, 0, 0);
        cairo_paint(context_);
        cairo_restore(context_);
    }
    void finish() override { cairo_surface_finish(surface_); }

private:
    void setColour(const bench::Colour& colour) {
        cairo_set_source_rgb(context_, colour.red, colour.green, colour.blue);
    }
    void stroke(const bench::Colour& colour, double width) {
        setColour(colour);
        cairo_set_line_width(context_, width);
        cairo_stroke(context_);
    }

    static cairo_pattern_t* makeRamp(const bench::Ramp& r) {
        if (!r.isRadial)
            return cairo_pattern_create_linear(r.x, r.y, r.x + r.width, r.y + r.height);
        const double x = r.x + r.width / 2;
        const double y = r.y + r.height / 2;
        return cairo_pattern_create_radial(x, y, 0, x, y, std::min(r.width, r.height) / 2);
    }

    cairo_surface_t* image_ = nullptr;
    int side_ = 0;
    cairo_surface_t* surface_;
    cairo_t* context_;
};

}  // namespace

int main(int argc, char** argv) {
    return bench::run<Cairo>(argc, argv);
}
