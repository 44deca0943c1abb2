#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Drawing::Print {

/// Turns the rows of a picture into differences from their neighbours, which compress far better,
/// by the five PNG filters (PNG 9; Predictor 15 of FlateDecode, PLRM 3.13.3). Each row takes the
/// one that leaves the smallest differences, or, where most pixels equal their neighbours, none.
class RowPredictor {
public:
    /// 8 bits a component, `components` a pixel.
    RowPredictor(std::size_t rowBytes, std::size_t components);

    /// The next row as it is to be compressed: the number of its filter and the differences.
    /// Valid until the next call.
    std::span<const std::uint8_t> filtered(std::span<const std::uint8_t> row);

private:
    void apply(std::size_t filter);
    [[nodiscard]] bool isFlat() const;

    std::size_t components_;
    std::vector<std::uint8_t> row_;    ///< with a pixel of zeros in front, as the filters have it
    std::vector<std::uint8_t> above_;  ///< likewise
    std::vector<std::uint8_t> best_;
    std::vector<std::uint8_t> trial_;
};

}  // namespace Drawing::Print
