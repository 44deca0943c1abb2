// What one call costs: the pieces of the hot path, in the order in which a number becomes a page.

#include "Core/FixedFormat.h"
#include "Core/MemoryStream.h"
#include "Core/StringFormatStream.h"
#include "Drawing/Brush.h"
#include "Drawing/Path.h"
#include "Drawing/Stroke.h"
#include "PS/PSDocument.h"
#include "PS/internal/Base85Writer.h"
#include "PS/internal/HexWriter.h"

#include <benchmark/benchmark.h>

#include <random>
#include <span>
#include <string_view>
#include <vector>

namespace {

using Core::makeObject;

std::vector<float> coordinates() {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> anywhere(0, 842);
    std::vector<float> values(4096);
    for (float& value : values)
        value = anywhere(random);
    return values;
}

void writeNumbers(benchmark::State& state, bool repeated) {
    const std::vector<float> values = coordinates();
    char out[Core::kMaxNumberText<float>];
    std::size_t i = 0;
    for (auto _ : state) {
        const float value = values[i % (repeated ? 4 : values.size())];
        benchmark::DoNotOptimize(Core::writeNumber(out, value));
        ++i;
    }
}
BENCHMARK_CAPTURE(writeNumbers, new_each_time, false);
BENCHMARK_CAPTURE(writeNumbers, four_in_turn, true);

void formatAtRunTime(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize((Core::StringFormatStream(u"{0} {1} l") << 1.5F << 2.25F).str());
}
BENCHMARK(formatAtRunTime);

/// A nested context, whose memory is thrown away often enough not to count.
class Page {
public:
    Page() { reset(); }
    void reset() {
        context_ = makeObject<Drawing::PS::PSDocument>(makeObject<Core::IO::MemoryStream>().get(),
                                                       Drawing::SizeF{595, 842}, false);
        context_->setTransform({});
    }
    Drawing::IOutputContext& operator*() { return *context_; }

private:
    Core::SmartPtr<Drawing::IOutputContext> context_;
};

constexpr int kDrawingsAPage = 10000;

template <class Draw>
void drawRepeatedly(benchmark::State& state, Draw draw) {
    Page page;
    int drawings = 0;
    for (auto _ : state) {
        draw(*page);
        if (++drawings % kDrawingsAPage == 0)
            page.reset();
    }
}

void drawRectangle(benchmark::State& state) {
    const std::vector<float> v = coordinates();
    std::size_t i = 0;
    drawRepeatedly(state, [&](Drawing::IOutputContext& page) {
        i = (i + 4) % (v.size() - 4);
        page.drawRectangle(v[i], v[i + 1], v[i + 2], v[i + 3], 0, 0);
    });
}
BENCHMARK(drawRectangle);

void drawTwentyCurves(benchmark::State& state) {
    const std::vector<float> v = coordinates();
    const auto path = makeObject<Drawing::Path>();
    path->moveTo(v[0], v[1]);
    for (std::size_t i = 2; i < 122; i += 6)
        path->curveTo(v[i], v[i + 1], v[i + 2], v[i + 3], v[i + 4], v[i + 5]);
    drawRepeatedly(state, [&](Drawing::IOutputContext& page) { page.drawPath(path); });
}
BENCHMARK(drawTwentyCurves);

Core::ByteArray noise() {
    std::mt19937 random(1);
    Core::ByteArray bytes(std::size_t{1} << 20);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(random());
    return bytes;
}

/// Bytes of input a second, into memory that is there already.
template <class Encode>
void encode(benchmark::State& state, Encode encodeTo) {
    const Core::ByteArray bytes = noise();
    Core::IO::MemoryStream stream;
    for (auto _ : state) {
        stream.seek(0, Core::IO::SeekOrigin::begin);
        encodeTo(stream, std::span<const std::uint8_t>(bytes.data(), bytes.size()));
        benchmark::DoNotOptimize(stream.length());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
}
BENCHMARK_CAPTURE(encode, base85, [](auto& stream, auto bytes) {
    Drawing::PS::Base85Writer writer(stream);
    writer.write(bytes);
    writer.finish();
});
BENCHMARK_CAPTURE(encode, hexadecimal,
                  [](auto& stream, auto bytes) { Drawing::PS::writeHex(stream, bytes); });
BENCHMARK_CAPTURE(encode, copy, [](auto& stream, auto bytes) {
    stream.write(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
});

}  // namespace
