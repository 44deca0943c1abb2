#include "Core/DateTime.h"

#include <chrono>

namespace Core {

DateTime DateTime::getCurrentGMTTime() {
    const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
    const std::chrono::year_month_day date(today);
    return {static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
            static_cast<unsigned>(date.day())};
}

}  // namespace Core
