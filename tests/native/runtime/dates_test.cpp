#include "runtime/dates.h"

#include "tests/native/support/raised.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <limits>
#include <tuple>

namespace kestrelmoor::tests {

namespace {

std::string Calendar(Date date) {
    const DateParts parts = PartsOf(date);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", parts.year, parts.month,
                  parts.day, parts.hour, parts.minute, parts.second);
    return text.data();
}

std::int32_t Refusal(Date date) {
    return RaisedNumber([&] { PartsOf(date); });
}

TEST(Dates, DaysAreCountedFromTheThirtiethOfDecember1899) {
    EXPECT_EQ(Calendar(0), "1899-12-30 00:00:00");
    EXPECT_EQ(Calendar(1), "1899-12-31 00:00:00");
    EXPECT_EQ(Calendar(2), "1900-01-01 00:00:00");
    EXPECT_EQ(Calendar(36526), "2000-01-01 00:00:00");
    EXPECT_EQ(Calendar(46083), "2026-03-02 00:00:00");
    EXPECT_EQ(DateOf({2000, 1, 1, 0, 0, 0}), 36526.0);
    EXPECT_EQ(DateOf({1899, 12, 30, 0, 0, 0}), 0.0);
}

TEST(Dates, LeapYearsAreTheGregorianOnes) {
    EXPECT_EQ(Calendar(60), "1900-02-28 00:00:00");
    EXPECT_EQ(Calendar(61), "1900-03-01 00:00:00");
    EXPECT_EQ(Calendar(36585), "2000-02-29 00:00:00");
    EXPECT_EQ(DateOf({2000, 3, 1, 0, 0, 0}), 36586.0);
}

TEST(Dates, EachDayOfTwoCenturiesFollowsTheOneBefore) {
    constexpr int kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    Date date = -36887; // 1 January 1799
    for (int year = 1799; year <= 2001; ++year)
        for (int month = 1; month <= 12; ++month) {
            const bool leap = year % 4 == 0 && year != 1800 && year != 1900;
            const int days = kLengths[month - 1] + (month == 2 && leap ? 1 : 0);
            for (int day = 1; day <= days; ++day, ++date) {
                const DateParts parts = PartsOf(date);
                ASSERT_EQ(std::tuple(parts.year, parts.month, parts.day), std::tuple(year, month, day));
                ASSERT_EQ(DateOf({year, month, day, 0, 0, 0}), date);
            }
        }
}

TEST(Dates, TheFractionIsTheTimeOfDay) {
    EXPECT_EQ(Calendar(36526.75), "2000-01-01 18:00:00");
    EXPECT_EQ(Calendar(36526 + 1.0 / 1440), "2000-01-01 00:01:00");
    EXPECT_EQ(Calendar(36526 + 61.0 / 86400), "2000-01-01 00:01:01");
    EXPECT_EQ(DateOf({2000, 1, 1, 0, 36, 0}), 36526.025);
    EXPECT_EQ(DateOf({2000, 1, 1, 6, 0, 0}), 36526.25);
    EXPECT_EQ(Calendar(DateOf({2026, 3, 2, 23, 59, 59})), "2026-03-02 23:59:59");
}

TEST(Dates, AheadOfTheFirstDayTheFractionStillCountsUp) {
    EXPECT_EQ(Calendar(-1.25), "1899-12-29 06:00:00");
    EXPECT_EQ(Calendar(-0.25), "1899-12-30 06:00:00");
    EXPECT_EQ(DateOf({1899, 12, 29, 6, 0, 0}), -1.25);
}

TEST(Dates, TheTimeIsRoundedToTheNearestSecond) {
    EXPECT_EQ(Calendar(36525.999999), "2000-01-01 00:00:00");
    EXPECT_EQ(Calendar(36525.99999), "1999-12-31 23:59:59");
    EXPECT_EQ(Calendar(-1.999999999), "1899-12-30 00:00:00");
}

TEST(Dates, TheYearsFrom100To9999CanBeTold) {
    EXPECT_EQ(Calendar(-657434), "0100-01-01 00:00:00");
    EXPECT_EQ(Calendar(2958465), "9999-12-31 00:00:00");
    EXPECT_EQ(DateOf({100, 1, 1, 0, 0, 0}), -657434.0);
    EXPECT_EQ(Refusal(-657435), 5);
    EXPECT_EQ(Refusal(2958466), 5);
    EXPECT_EQ(Refusal(2958465.9999999), 5);
    EXPECT_EQ(Refusal(1e300), 5);
    EXPECT_EQ(Refusal(std::numeric_limits<double>::quiet_NaN()), 5);
    EXPECT_EQ(RaisedNumber([] { DateOf({99, 12, 31, 0, 0, 0}); }), 5);
    EXPECT_EQ(RaisedNumber([] { DateOf({10000, 1, 1, 0, 0, 0}); }), 5);
}

} // namespace

} // namespace kestrelmoor::tests
