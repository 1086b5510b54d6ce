#include "runtime/dates.h"

#include "runtime/errors.h"

#include <cmath>

namespace kestrelmoor {

namespace {

constexpr std::int64_t kSecondsOfDay = 86400;
constexpr std::int64_t kDaysToEpoch = 693594; ///< 30 December 1899, counted from 1 January of year 1 as 1

/// Days from 1 January of year 1, counted as 1, in the proleptic Gregorian calendar.
std::int64_t DayNumber(int year, int month, int day) {
    const std::int64_t shifted = month > 2 ? month - 3 : month + 9;
    const std::int64_t y = month > 2 ? year : year - 1;
    return 365 * y + y / 4 - y / 100 + y / 400 + (153 * shifted + 2) / 5 + day - 306;
}

void SetCalendarDay(DateParts& parts, std::int64_t day_number) {
    const std::int64_t days = day_number + 305;
    const std::int64_t era = days / 146097;
    const std::int64_t day_of_era = days % 146097;
    const std::int64_t year_of_era =
        (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
    const std::int64_t day_of_year = day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
    const std::int64_t shifted = (5 * day_of_year + 2) / 153;
    parts.day = static_cast<int>(day_of_year - (153 * shifted + 2) / 5 + 1);
    parts.month = static_cast<int>(shifted < 10 ? shifted + 3 : shifted - 9);
    parts.year = static_cast<int>(year_of_era + era * 400 + (parts.month <= 2 ? 1 : 0));
}

void RequireYear(int year) {
    if (year < 100 || year > 9999)
        RaiseError(error_number::kInvalidArgument);
}

} // namespace

Date DateOf(const DateParts& parts) {
    RequireYear(parts.year);
    const std::int64_t days = DayNumber(parts.year, parts.month, parts.day) - kDaysToEpoch;
    const double fraction = (parts.hour * 3600.0 + parts.minute * 60.0 + parts.second) / kSecondsOfDay;
    const auto whole = static_cast<double>(days);
    // A wider register would keep digits that a date in memory doesn't have.
    const volatile Date stored = days < 0 ? whole - fraction : whole + fraction;
    return stored;
}

DateParts PartsOf(Date date) {
    if (!(std::fabs(date) < 1.0e7))
        RaiseError(error_number::kInvalidArgument);
    auto days = static_cast<std::int64_t>(std::trunc(date));
    auto seconds =
        static_cast<std::int64_t>(std::floor(std::fabs(date - std::trunc(date)) * kSecondsOfDay + 0.5));
    if (seconds == kSecondsOfDay) {
        seconds = 0;
        ++days;
    }
    DateParts parts;
    SetCalendarDay(parts, days + kDaysToEpoch);
    RequireYear(parts.year);
    parts.hour = static_cast<int>(seconds / 3600);
    parts.minute = static_cast<int>(seconds / 60 % 60);
    parts.second = static_cast<int>(seconds % 60);
    return parts;
}

} // namespace kestrelmoor
