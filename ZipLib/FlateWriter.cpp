#include "ZipLib/FlateWriter.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <new>

namespace ZipLib {

namespace {

constexpr std::size_t kBlock = std::size_t{1} << 19;
/// How much of a block is compressed in both ways to see which one suits it: pieces from all over
/// it, as a picture may begin with nothing but sky.
constexpr std::size_t kSamplePieces = 4;
constexpr std::size_t kSamplePiece = std::size_t{1} << 12;
/// Matches have to save this part of the bytes to be worth their time.
constexpr std::size_t kWorthwhile = 16;
constexpr std::size_t kRoom = std::size_t{1} << 16;

/// Measured on photographs: the differences that predictors leave take 3 % more with matches than
/// without, and three to ten times as long.
struct Way {
    int level;
    int strategy;

    friend bool operator==(const Way&, const Way&) = default;
};
constexpr Way kMatches{6, Z_DEFAULT_STRATEGY};
constexpr Way kRuns{1, Z_RLE};

/// zlib takes pointers to what it only reads.
Bytef* readable(std::span<const std::uint8_t> bytes) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
    return const_cast<Bytef*>(bytes.data());
}

std::vector<std::uint8_t> sampleOf(std::span<const std::uint8_t> block) {
    if (block.size() <= kSamplePieces * kSamplePiece)
        return {block.begin(), block.end()};
    std::vector<std::uint8_t> sample;
    for (std::size_t i = 0; i < kSamplePieces; ++i) {
        const auto piece = block.subspan(block.size() / kSamplePieces * i, kSamplePiece);
        sample.insert(sample.end(), piece.begin(), piece.end());
    }
    return sample;
}

/// One run of zlib's compressor.
class Compressor : z_stream {
public:
    explicit Compressor(Way way) : z_stream{}, way_(way) {
        constexpr int kWindowBits = 15;
        constexpr int kMostMemory = 9;
        if (deflateInit2(this, way.level, Z_DEFLATED, kWindowBits, kMostMemory, way.strategy) !=
            Z_OK)
            throw std::bad_alloc();
    }
    Compressor(const Compressor&) = delete;
    Compressor& operator=(const Compressor&) = delete;
    ~Compressor() { deflateEnd(this); }

    /// Compresses `bytes` and hands on what comes out; `flush` as zlib has it.
    template <class Take>
    void compress(std::span<const std::uint8_t> bytes, int flush, Take take) {
        next_in = readable(bytes);
        avail_in = static_cast<uInt>(bytes.size());
        do {
            next_out = room_.data();
            avail_out = static_cast<uInt>(room_.size());
            deflate(this, flush);
            take(std::span<const std::uint8_t>(room_).first(room_.size() - avail_out));
        } while (avail_out == 0);
    }

    /// To be called when nothing is held back, that is after a compression with `Z_BLOCK`.
    void change(Way way) {
        if (way == way_)
            return;
        next_out = room_.data();
        avail_out = static_cast<uInt>(room_.size());
        deflateParams(this, way.level, way.strategy);
        way_ = way;
    }

    std::size_t sizeOf(std::span<const std::uint8_t> bytes) {
        std::size_t size = 0;
        deflateReset(this);
        compress(bytes, Z_FINISH, [&](auto part) { size += part.size(); });
        return size;
    }

private:
    Way way_;
    std::array<std::uint8_t, kRoom> room_{};
};

}  // namespace

struct FlateWriter::Deflater {
    explicit Deflater(Core::IO::Stream& to) : output(to) {}

    Core::IO::Stream& output;
    Compressor compressor{kRuns};
    Compressor matches{kMatches};
    Compressor runs{kRuns};

    Way wayFor(std::span<const std::uint8_t> block) {
        const auto sample = sampleOf(block);
        const std::size_t byRuns = runs.sizeOf(sample);
        return matches.sizeOf(sample) < byRuns - byRuns / kWorthwhile ? kMatches : kRuns;
    }

    void write(std::span<const std::uint8_t> block, bool isLast) {
        compressor.change(wayFor(block));
        compressor.compress(block, isLast ? Z_FINISH : Z_BLOCK, [this](auto part) {
            char* room = output.reserve(part.size());
            output.commit(std::copy(part.begin(), part.end(), room));
        });
    }
};

FlateWriter::FlateWriter(Core::IO::Stream& output) : deflater_(std::make_unique<Deflater>(output)) {
    block_.reserve(kBlock);
}

FlateWriter::~FlateWriter() = default;

void FlateWriter::write(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        if (block_.size() == kBlock)
            compressBlock(false);
        const auto part = bytes.first(std::min(bytes.size(), kBlock - block_.size()));
        block_.insert(block_.end(), part.begin(), part.end());
        bytes = bytes.subspan(part.size());
    }
}

void FlateWriter::finish() {
    compressBlock(true);
}

void FlateWriter::compressBlock(bool isLast) {
    deflater_->write(block_, isLast);
    block_.clear();
}

}  // namespace ZipLib
