#include "PS/internal/ScaledByte.h"

namespace Drawing::PS::ScaledByteTexts {

namespace {

std::array<Text, 256> makeTexts() noexcept {
    std::array<Text, 256> texts;
    for (std::size_t value = 0; value < texts.size(); ++value) {
        std::array<char, Core::kMaxNumberText<float>> number{};
        const auto scaled = static_cast<float>(static_cast<double>(value) * kByteScale);
        const char* end = Core::writeNumber(number.data(), scaled);
        texts[value].length = static_cast<std::uint8_t>(end - number.data());
        std::copy_n(number.begin(), texts[value].characters.size(),
                    texts[value].characters.begin());
    }
    return texts;
}

}  // namespace

const std::array<Text, 256> kTexts = makeTexts();

}  // namespace Drawing::PS::ScaledByteTexts
