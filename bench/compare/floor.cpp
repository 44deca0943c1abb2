// The same page text as the library's, formatted straight into a buffer: no objects, no document,
// no temporary file, and nothing remembered. What remains is finding digits and writing bytes.

#include "Core/FileStream.h"
#include "Core/FixedFormat.h"
#include "Core/SmartPtr.h"
#include "bench/compare/Workload.h"

#include <charconv>

namespace {

/// A number formatted anew each time.
struct Plain {
    float value;
};

char* writeNumber(char* out, Plain number) {
    const float v = number.value;
    if (v > -1e9F && v < 1e9F && static_cast<float>(static_cast<int>(v)) == v)
        return std::to_chars(out, out + 64, static_cast<int>(v)).ptr;
    return std::to_chars(out, out + 64, v, std::chars_format::fixed).ptr;
}

Plain plain(double value) {
    return {static_cast<float>(value)};
}

Plain component(double value) {
    return {static_cast<float>(static_cast<int>(value * 255)) * 0.00390625F};
}

}  // namespace

template <>
inline constexpr std::size_t Core::kMaxNumberText<Plain> = 64;

namespace {

class Floor : public bench::Backend {
public:
    explicit Floor(const char* file)
        : output_(Core::makeObject<Core::IO::FileStream>(file, true, true, true)) {}

    void beginPage() override { Core::writeFixed<"%%Page:1 1\n">(*output_); }
    void endPage() override { Core::writeFixed<"%%PageTrailer\nshp\n">(*output_); }
    void draw(const bench::Rectangle& r) override {
        beginShape();
        point<"{0} {1} m\n">(r.x, r.y);
        point<"{0} {1} l\n">(r.x + r.width, r.y);
        point<"{0} {1} l\n">(r.x + r.width, r.y + r.height);
        point<"{0} {1} l\n">(r.x, r.y + r.height);
        Core::writeFixed<"cp\nq\n">(*output_);
        colour(r.fill);
        Core::writeFixed<"f\nQ\n">(*output_);
        stroke(r.stroke, r.lineWidth);
    }
    void draw(const bench::Curves& c) override {
        const auto& p = c.coordinates;
        beginShape();
        point<"{0} {1} m\n">(p[0], p[1]);
        for (std::size_t i = 2; i < p.size(); i += 6)
            Core::writeFixed<"{0} {1} {2} {3} {4} {5} c\n">(*output_, plain(p[i]), plain(p[i + 1]),
                                                            plain(p[i + 2]), plain(p[i + 3]),
                                                            plain(p[i + 4]), plain(p[i + 5]));
        stroke(c.stroke, c.lineWidth);
    }
    void finish() override { output_->close(); }

private:
    template <Core::FixedText Template>
    void point(double x, double y) {
        Core::writeFixed<Template>(*output_, plain(x), plain(y));
    }
    void beginShape() {
        Core::writeFixed<"q\n[{0} {1} {1} {2} {1} {3}] cm\n">(*output_, plain(1), plain(0),
                                                              plain(-1), plain(bench::kPageHeight));
    }
    void colour(const bench::Colour& c) {
        Core::writeFixed<" {0} {1} {2} setrgbcolor\n">(*output_, component(c.red),
                                                       component(c.green), component(c.blue));
    }
    void stroke(const bench::Colour& c, double width) {
        Core::writeFixed<" {0} w\n0 J\n{1} M\n">(*output_, plain(width), plain(10));
        colour(c);
        Core::writeFixed<"s\nQ\n">(*output_);
    }

    Core::SmartPtr<Core::IO::FileStream> output_;
};

}  // namespace

int main(int argc, char** argv) {
    return bench::run<Floor>(argc, argv);
}
