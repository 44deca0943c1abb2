// The PostScript surface of the general 2-D library that distributions ship.

#include "bench/compare/Workload.h"

#include <cairo/cairo-ps.h>

namespace {

class Cairo : public bench::Backend {
public:
    explicit Cairo(const char* file)
        : surface_(cairo_ps_surface_create(file, bench::kPageWidth, bench::kPageHeight)),
          context_(cairo_create(surface_)) {}
    Cairo(const Cairo&) = delete;
    Cairo& operator=(const Cairo&) = delete;
    ~Cairo() override {
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

    cairo_surface_t* surface_;
    cairo_t* context_;
};

}  // namespace

int main(int argc, char** argv) {
    return bench::run<Cairo>(argc, argv);
}
