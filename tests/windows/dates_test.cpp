#include "runtime/dates.h"

#include <gtest/gtest.h>

namespace kestrelmoor {
namespace {

/// 2 March 2026 at a time of day that no binary fraction gives exactly.
constexpr DateParts kMoment{.year = 2026, .month = 3, .day = 2, .hour = 9, .minute = 0, .second = 7};

Date InMemory(const DateParts& parts) {
    const volatile Date stored = DateOf(parts);
    return stored;
}

TEST(Dates, ADateHasNoDigitsBeyondThoseOfOneInMemory) {
    const Date stored = InMemory(kMoment);
    EXPECT_TRUE(stored - DateOf(kMoment) == 0);
}

TEST(Dates, AWholeNumberOfDaysBetweenTwoMomentsIsWhole) {
    DateParts later = kMoment;
    later.day += 14;
    const Date stored = InMemory(later);
    EXPECT_TRUE(stored - DateOf(kMoment) == 14);
}

} // namespace
} // namespace kestrelmoor
