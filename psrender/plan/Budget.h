#pragma once

#include <cstddef>

namespace psrender::plan {

/// What cutting and blending may still cost on a page, so that it takes seconds at most whatever
/// the page holds. Everything whose cost grows faster than the page spends of it.
class Budget {
public:
    /// In comparisons of two edges of polygons; what costs more or less is counted as so many.
    static constexpr std::size_t kPage = 200'000'000;

    explicit Budget(std::size_t amount = kPage) : left_(amount) {}

    /// Takes `amount` off; false if that leaves nothing.
    bool spend(std::size_t amount) {
        left_ = left_ > amount ? left_ - amount : 0;
        return left_ > 0;
    }
    [[nodiscard]] bool isSpent() const { return left_ == 0; }
    [[nodiscard]] std::size_t left() const { return left_; }

    /// Remembers that something is seen as its average, as it cannot be blended exactly.
    void noteAverage() { hasAverages_ = true; }
    [[nodiscard]] bool hasAverages() const { return hasAverages_; }

private:
    std::size_t left_;
    bool hasAverages_ = false;
};

}  // namespace psrender::plan
