#include "Core/NumberText.h"

#include "tests/support/Raises.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace {

std::string text(auto value) {
    char out[Core::kMaxNumberText<decltype(value)>];
    return {out, Core::writeNumber(out, value)};
}

TEST(NumberText, IsPlainAndShortest) {
    EXPECT_EQ("0", text(0.0F));
    EXPECT_EQ("0", text(-0.0F));
    EXPECT_EQ("0", text(-0.0));
    EXPECT_EQ("100000", text(1e5F));
    EXPECT_EQ("0.00001", text(1e-5F));
    EXPECT_EQ("0.33333334", text(1.0F / 3));
    EXPECT_EQ("0.3333333333333333", text(1.0 / 3));
    EXPECT_EQ("100000002004087734272", text(1e20F));
    EXPECT_EQ("-595.3", text(-595.3F));
    EXPECT_EQ("0.99609375", text(255 * 0.00390625));
    EXPECT_EQ("-9223372036854775808", text(std::numeric_limits<std::int64_t>::min()));
    EXPECT_EQ("18446744073709551615", text(std::numeric_limits<std::uint64_t>::max()));
}

TEST(NumberText, FloatsReadBackAsTheSameFloat) {
    for (std::uint64_t bits = 0; bits <= 0xFFFFFFFF; bits += 99991) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
        if (!std::isfinite(value))
            continue;
        for (int again = 0; again < 2; ++again) {
            const std::string written = text(value);
            float read = 0;
            std::from_chars(written.data(), written.data() + written.size(), read);
            ASSERT_EQ(value, read) << written;
            ASSERT_EQ(std::string::npos, written.find_first_not_of("-.0123456789")) << written;
        }
    }
}

TEST(NumberText, RefusesWhatPostScriptCannotRead) {
    const double tooLarge = 3.5e38;
    for (const double value : {tooLarge, -tooLarge, std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_RAISES(Core::NumberRangeException, "NumberText:1", text(value));
        EXPECT_RAISES(Core::NumberRangeException, "NumberText:1", text(static_cast<float>(value)));
    }
    EXPECT_EQ(39U, text(std::numeric_limits<float>::max()).size());
    EXPECT_GE(Core::kMaxNumberText<double>,
              text(-std::numeric_limits<double>::denorm_min()).size());
}

}  // namespace
