#pragma once

#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

/// The same drawing for every back end: seeded, so that all of them write the same pages.
namespace bench {

struct Colour {
    double red = 0;
    double green = 0;
    double blue = 0;
};

constexpr double kPageWidth = 595;
constexpr double kPageHeight = 842;
constexpr int kCurves = 20;

struct Rectangle {
    double x, y, width, height;
    Colour fill, stroke;
    double lineWidth;
};

/// A move and `kCurves` cubic curves: x and y in turn.
struct Curves {
    std::array<double, 2 + 6 * kCurves> coordinates;
    Colour stroke;
    double lineWidth;
};

/// A short run of text with its baseline at y.
struct Label {
    double x, y, size;
    Colour fill;
    const char* text;
};

/// A rectangle filled with two colours that run into each other.
struct Ramp {
    bool isRadial;
    double x, y, width, height;
    Colour from, to;
};

/// A square of 8-bit RGB pixels.
struct Pixels {
    int side = 0;
    std::vector<std::uint8_t> bytes;
};

/// One page description language, driven by one process. The pages of text use one font each.
class Backend {
public:
    Backend() = default;
    Backend(const Backend&) = delete;
    Backend& operator=(const Backend&) = delete;
    virtual ~Backend() = default;

    virtual void beginPage() = 0;
    virtual void endPage() = 0;
    virtual void draw(const Rectangle& rectangle) = 0;
    virtual void draw(const Curves& curves) = 0;
    virtual void setFont(const char* /*family*/) {}
    virtual void draw(const Label& /*label*/) { refuse(); }
    virtual void draw(const Ramp& /*ramp*/) { refuse(); }
    /// Makes an image known, which is placed from then on until the next one comes.
    virtual void setImage(const Pixels& /*pixels*/) { refuse(); }
    /// Places it on a square of 512 points.
    virtual void placeImage() { refuse(); }
    virtual void finish() = 0;

private:
    [[noreturn]] static void refuse() {
        std::fputs("this back end does not have the workload\n", stderr);
        std::exit(2);
    }
};

class Random {
public:
    double between(double low, double high) {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 7;
        state_ ^= state_ << 17;
        return low + (high - low) * static_cast<double>(state_ >> 32) / 4294967296.0;
    }
    Colour colour() {
        const double red = between(0, 1);
        const double green = between(0, 1);
        return {red, green, between(0, 1)};
    }

private:
    std::uint64_t state_ = 0x9E3779B97F4A7C15;
};

inline Rectangle randomRectangle(Random& random) {
    Rectangle r{random.between(0, 500),
                random.between(0, 750),
                random.between(1, 90),
                random.between(1, 90),
                random.colour(),
                random.colour(),
                0};
    r.lineWidth = random.between(0.2, 3);
    return r;
}

inline Curves randomCurves(Random& random) {
    Curves curves{};
    double x = random.between(50, 545);
    double y = random.between(50, 790);
    for (std::size_t i = 0; i < curves.coordinates.size(); i += 2) {
        curves.coordinates[i] = x += random.between(-20, 20);
        curves.coordinates[i + 1] = y += random.between(-20, 20);
    }
    curves.stroke = random.colour();
    curves.lineWidth = random.between(0.2, 3);
    return curves;
}

inline Label randomLabel(Random& random) {
    static constexpr std::array kTexts{"Invoice", "AVATAR",  "Subtotal",     "Page layout",
                                       "To",      "Fig. 12", "brown foxes",  "We, You, They",
                                       "9876543", "kerning", "Tidal Wave",   "offline waffle",
                                       "A",       "Vote",    "left to right"};
    const double x = random.between(0, 500);
    const double y = random.between(20, 820);
    const double size = std::floor(random.between(6, 22));
    const Colour fill = random.colour();
    return {x, y, size, fill, kTexts[static_cast<std::size_t>(random.between(0, kTexts.size()))]};
}

inline Ramp randomRamp(Random& random) {
    static bool isRadial = false;
    isRadial = !isRadial;
    const double x = random.between(0, 500);
    const double y = random.between(0, 750);
    const double width = random.between(5, 90);
    const double height = random.between(5, 90);
    const Colour from = random.colour();
    return {isRadial, x, y, width, height, from, random.colour()};
}

/// Smooth colours with noise in the low bits, as photographs have them.
inline Pixels photograph(int side, int seed) {
    Pixels pixels{side, {}};
    pixels.bytes.reserve(static_cast<std::size_t>(side) * static_cast<std::size_t>(side) * 3);
    std::uint32_t noise = static_cast<std::uint32_t>(seed) * 2654435761U + 1;
    const auto add = [&](int value, int shift) {
        pixels.bytes.push_back(
            static_cast<std::uint8_t>(static_cast<unsigned>(value) ^ (noise >> shift & 7)));
    };
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            noise = noise * 1664525U + 1013904223U;
            add(x * 255 / side + seed, 29);
            add(y * 255 / side, 26);
            add((x + y) * 127 / side, 23);
        }
    return pixels;
}

/// Images of 512 pixels, a new one on each page.
inline long placeImages(Backend& backend, int pages) {
    for (int page = 0; page < pages; ++page) {
        backend.setImage(photograph(512, page));
        backend.beginPage();
        backend.placeImage();
        backend.endPage();
    }
    return pages;
}

/// One image on every page.
inline long repeatImage(Backend& backend, int side, int pages) {
    backend.setImage(photograph(side, 7));
    for (int page = 0; page < pages; ++page) {
        backend.beginPage();
        backend.placeImage();
        backend.endPage();
    }
    return pages;
}

template <class Make>
long drawPages(Backend& backend, int pages, int perPage, Make make) {
    Random random;
    for (int page = 0; page < pages; ++page) {
        backend.beginPage();
        for (int i = 0; i < perPage; ++i)
            backend.draw(make(random));
        backend.endPage();
    }
    return long{pages} * perPage;
}

/// Peak resident memory of this process in KiB.
inline long peakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmHWM:") {
            long peak = 0;
            status >> peak;
            return peak;
        }
    return 0;
}

inline long drawText(Backend& backend, const char* family, int pages) {
    backend.setFont(family);
    return drawPages(backend, pages, 2000, randomLabel);
}

/// What a report holds: rectangles, curves, labels and ramps in turn.
inline long drawMixed(Backend& backend, int pages) {
    backend.setFont("DejaVu Sans");
    Random random;
    constexpr int kPerPage = 200;
    for (int page = 0; page < pages; ++page) {
        backend.beginPage();
        for (int i = 0; i < kPerPage; ++i) {
            if (i % 5 < 2)
                backend.draw(randomRectangle(random));
            else if (i % 5 == 2)
                backend.draw(randomCurves(random));
            else if (i % 50 == 3)
                backend.draw(randomRamp(random));
            else
                backend.draw(randomLabel(random));
        }
        backend.endPage();
    }
    return long{pages} * kPerPage;
}

/// The calls that the workload made; -1 for one that does not exist.
inline long draw(Backend& backend, std::string_view workload, int pages) {
    if (workload == "rects")
        return drawPages(backend, pages, 10000, randomRectangle);
    if (workload == "paths")
        return drawPages(backend, pages, 2000, randomCurves);
    if (workload == "text-helv")
        return drawText(backend, "Helvetica", pages);
    if (workload == "text-ttf")
        return drawText(backend, "DejaVu Sans", pages);
    if (workload == "gradients")
        return drawPages(backend, pages, 200, randomRamp);
    if (workload == "mixed")
        return drawMixed(backend, pages);
    if (workload == "images")
        return placeImages(backend, pages);
    if (workload == "sameimage")
        return repeatImage(backend, 512, pages);
    if (workload == "bigimage")
        return repeatImage(backend, 4096, 1);
    return -1;
}

/// Draws a workload on 100 pages, or as many as asked for, and prints calls, seconds and peak
/// memory as JSON.
template <class AnyBackend>
int run(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s WORKLOAD FILE [PAGES]\n", argv[0]);
        return 2;
    }
    const int pages = argc > 3 ? std::atoi(argv[3]) : 100;
    const auto start = std::chrono::steady_clock::now();
    long calls = 0;
    {
        AnyBackend backend(argv[2]);
        calls = draw(backend, argv[1], pages);
        backend.finish();
    }
    if (calls < 0) {
        std::fprintf(stderr, "there is no workload %s\n", argv[1]);
        return 2;
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    std::printf("{\"calls\": %ld, \"seconds\": %.4f, \"peak_kib\": %ld}\n", calls, seconds.count(),
                peakMemory());
    return 0;
}

}  // namespace bench
