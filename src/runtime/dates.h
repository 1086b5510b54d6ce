#pragma once

#include <cstdint>

namespace kestrelmoor {

/// A point in time as the platform's floating date: days since 30 December 1899 00:00, the time of day as
/// the fraction. Before that day the whole part counts down and the fraction still counts up.
using Date = double;

/// A calendar date and time of day, in the proleptic Gregorian calendar.
struct DateParts {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// The floating date of calendar parts. Years 100 to 9999; raises 5 outside of them.
Date DateOf(const DateParts& parts);

/// The calendar parts of a floating date, rounded to the nearest second. Raises 5 outside years 100 to 9999.
DateParts PartsOf(Date date);

} // namespace kestrelmoor
