#include "Print/images/internal/RowPredictor.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace Drawing::Print {

namespace {

constexpr std::size_t kFilters = 5;

/// What surrounds each byte of a row, as the filters see it.
struct Row {
    const std::uint8_t* bytes;
    const std::uint8_t* left;
    const std::uint8_t* above;
    const std::uint8_t* aboveLeft;
    std::size_t size;
};

/// Without branches and overlaps, so that compilers work on many bytes at once.
template <class Predict>
void subtract(const Row& row, std::uint8_t* __restrict differences, Predict predict) {
    for (std::size_t i = 0; i < row.size; ++i)
        differences[i] = static_cast<std::uint8_t>(
            row.bytes[i] - predict(row.left[i], row.above[i], row.aboveLeft[i]));
}

std::int16_t distance(int a, int b) {
    return static_cast<std::int16_t>(a < b ? b - a : a - b);
}

/// The neighbour nearest to left + above - aboveLeft; on a tie in this order.
std::int16_t paeth(std::int16_t left, std::int16_t above, std::int16_t aboveLeft) {
    const std::int16_t toLeft = distance(above, aboveLeft);
    const std::int16_t toAbove = distance(left, aboveLeft);
    const std::int16_t toAboveLeft = distance(left + above, 2 * aboveLeft);
    const std::int16_t other = toAbove <= toAboveLeft ? above : aboveLeft;
    return toLeft <= std::min(toAbove, toAboveLeft) ? left : other;
}

/// Small differences to either side count alike.
std::uint64_t weightOf(std::span<const std::uint8_t> differences) {
    std::uint64_t sum = 0;
    constexpr std::size_t kPart = 4096;  // keeps the inner sum in 32 bits, for speed
    for (std::size_t at = 0; at < differences.size(); at += kPart) {
        std::uint32_t partSum = 0;
        for (const std::uint8_t value :
             differences.subspan(at, std::min(kPart, differences.size() - at)))
            partSum += value < 128 ? value : 256U - value;
        sum += partSum;
    }
    return sum;
}

}  // namespace

RowPredictor::RowPredictor(std::size_t rowBytes, std::size_t components)
    : components_(components),
      row_(components + rowBytes),
      above_(components + rowBytes),
      best_(1 + rowBytes),
      trial_(1 + rowBytes) {}

std::span<const std::uint8_t> RowPredictor::filtered(std::span<const std::uint8_t> row) {
    std::copy(row.begin(), row.end(), row_.begin() + static_cast<std::ptrdiff_t>(components_));
    const std::size_t filters = isFlat() ? 1 : kFilters;
    std::uint64_t least = std::numeric_limits<std::uint64_t>::max();
    for (std::size_t filter = 0; filter < filters; ++filter) {
        apply(filter);
        const std::uint64_t weight = weightOf(std::span(trial_).subspan(1));
        if (weight < least) {
            least = weight;
            std::swap(best_, trial_);
        }
    }
    std::swap(row_, above_);
    return best_;
}

/// Drawings, unlike photographs, are made of areas and letters that come again just as they are:
/// compression finds them better than differences from a neighbour do.
bool RowPredictor::isFlat() const {
    std::size_t equal = 0;
    for (std::size_t i = components_; i < row_.size(); ++i)
        equal += row_[i] == row_[i - components_] ? 1U : 0U;
    return equal > (row_.size() - components_) / 4 * 3;
}

void RowPredictor::apply(std::size_t filter) {
    const Row row{row_.data() + components_, row_.data(), above_.data() + components_,
                  above_.data(), row_.size() - components_};
    trial_[0] = static_cast<std::uint8_t>(filter);
    std::uint8_t* differences = trial_.data() + 1;
    switch (filter) {
        case 0:
            std::copy_n(row.bytes, row.size, differences);
            break;
        case 1:
            subtract(row, differences, [](int left, int, int) { return left; });
            break;
        case 2:
            subtract(row, differences, [](int, int above, int) { return above; });
            break;
        case 3:
            subtract(row, differences, [](int left, int above, int) { return (left + above) / 2; });
            break;
        default:
            subtract(row, differences, paeth);
    }
}

}  // namespace Drawing::Print
