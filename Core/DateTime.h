#pragma once

#include "Core/Export.h"

namespace Core {

/// A calendar date of the Gregorian calendar, in UTC.
class CORE_API DateTime {
public:
    constexpr DateTime(int year, unsigned month, unsigned day)
        : year_(year), month_(month), day_(day) {}

    /// Now, by UTC: the time zone of the process plays no part. The environment variable
    /// SOURCE_DATE_EPOCH, where it holds a number of seconds since 1970, takes the place of now, so
    /// that the same input gives the same bytes on every day (reproducible-builds.org).
    static DateTime getCurrentGMTTime();

    [[nodiscard]] int getYear() const { return year_; }
    /// 1 to 12.
    [[nodiscard]] unsigned getMonth() const { return month_; }
    /// 1 to 31.
    [[nodiscard]] unsigned getDay() const { return day_; }

private:
    int year_;
    unsigned month_;
    unsigned day_;
};

}  // namespace Core
