// What embedding a large font costs: its subset, and the subset's way to Type 42 strings.

#include "Core/MemoryStream.h"
#include "Fonts/FontException.h"
#include "Fonts/FontManager.h"
#include "Fonts/TTFFont.h"
#include "PS/fonts/TTFToType42.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

namespace {

constexpr const char* kFile = "/usr/share/fonts/truetype/droid/DroidSansFallbackFull.ttf";

/// 200 ideographs' worth of glyphs all over the font; nothing if it is not installed.
Core::SmartPtr<Fonts::TTFFont> openFont(benchmark::State& state) {
    try {
        return Fonts::FontManager::openFontFile(kFile).dynamicCast<Fonts::TTFFont>();
    } catch (const Fonts::FontException&) {
        state.SkipWithError("the package fonts-droid-fallback is not installed");
        return nullptr;
    }
}

std::vector<std::int32_t> usedGlyphs() {
    std::vector<std::int32_t> glyphs;
    for (std::int32_t glyph = 1; glyph <= 200; ++glyph)
        glyphs.push_back(glyph * 100);
    return glyphs;
}

void subsetLargeFont(benchmark::State& state) {
    const auto font = openFont(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(font->subset(usedGlyphs(), 0).size());
}
BENCHMARK(subsetLargeFont)->Unit(benchmark::kMillisecond);

void embedLargeFont(benchmark::State& state) {
    const auto font = openFont(state);
    const std::vector<std::int32_t> used = usedGlyphs();
    const auto stream = Core::makeObject<Core::IO::MemoryStream>();
    for (auto _ : state) {
        stream->seek(0, Core::IO::SeekOrigin::begin);
        Drawing::PS::TTFToType42(font, {used.begin(), used.end()}).write(stream, u"F");
    }
    state.counters["bytes"] = static_cast<double>(stream->length());
}
BENCHMARK(embedLargeFont)->Unit(benchmark::kMillisecond);

}  // namespace
