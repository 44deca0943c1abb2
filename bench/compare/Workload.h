#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>

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

/// One page description language, driven by one process.
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
    virtual void finish() = 0;
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

/// Draws the workload "rects" (10,000 a page) or "paths" (2,000 a page) on 100 pages, or as many
/// as asked for, and prints calls, seconds and peak memory as JSON.
template <class AnyBackend>
int run(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s rects|paths FILE [PAGES]\n", argv[0]);
        return 2;
    }
    const int pages = argc > 3 ? std::atoi(argv[3]) : 100;
    const auto start = std::chrono::steady_clock::now();
    long calls = 0;
    {
        AnyBackend backend(argv[2]);
        calls = std::string_view(argv[1]) == "rects"
                    ? drawPages(backend, pages, 10000, randomRectangle)
                    : drawPages(backend, pages, 2000, randomCurves);
        backend.finish();
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    std::printf("{\"calls\": %ld, \"seconds\": %.4f, \"peak_kib\": %ld}\n", calls, seconds.count(),
                peakMemory());
    return 0;
}

}  // namespace bench
