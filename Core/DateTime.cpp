#include "Core/DateTime.h"

#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

namespace Core {

namespace {

using Seconds = std::chrono::sys_seconds;

/// The last second of the year 9999.
constexpr std::uint64_t kLatest = 253402300799;

/// A moment that the environment sets in place of now, in seconds since 1970; nothing if it sets
/// none, or no whole number up to the year 9999.
std::optional<Seconds> chosenTime() {
    // Only a process that changes its environment while it finishes documents could be harmed.
    const char* chosen = std::getenv("SOURCE_DATE_EPOCH");  // NOLINT(concurrency-mt-unsafe)
    const std::string_view text = chosen ? chosen : "";
    std::uint64_t seconds = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (error != std::errc() || stop != text.data() + text.size() || seconds > kLatest)
        return std::nullopt;
    return Seconds(std::chrono::seconds(static_cast<std::int64_t>(seconds)));
}

Seconds currentTime() {
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

}  // namespace

DateTime DateTime::getCurrentGMTTime() {
    const Seconds moment = chosenTime().value_or(currentTime());
    const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(moment));
    return {static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
            static_cast<unsigned>(date.day())};
}

}  // namespace Core
