#pragma once

#include <cstddef>

namespace psrender::plan {

/// What cutting and blending may still cost on a page, so that it takes seconds at most whatever
/// the page holds. Everything whose cost grows faster than the page spends of it.
class Budget {
public:
    /// In comparisons of two edges of polygons; what costs more or less is counted as so many.
    static constexpr std::size_t kPage = 250'000'000;

    explicit Budget(std::size_t amount = kPage) : left_(amount) {}

    /// Takes `amount` off; false if that leaves nothing.
    bool spend(std::size_t amount) {
        left_ = left_ > amount ? left_ - amount : 0;
        return left_ > 0;
    }
    [[nodiscard]] bool isSpent() const { return left_ == 0; }
    [[nodiscard]] std::size_t left() const { return left_; }

private:
    std::size_t left_;
};

}  // namespace psrender::plan
