#include "tests/native/account/directory_status.h"

#include "shell/program_state.h"

#include <limits>

namespace kestrelmoor::tests {

namespace {

class DirectoryExpiry : public DirectoryStatus {};

} // namespace

TEST_F(DirectoryExpiry, WithNoDaysLeftIsExpiringInNoDaysAndNoHours) {
    DaysLeft(0);
    StartDiagnosing();
    EXPECT_EQ(Check(), 1);
    EXPECT_EQ(Report(), "message 4: phrase 8: \\\\ARCHIVE, 0, 00, noun 5 of 0, noun 6 of 0\r\n");
    EXPECT_EQ(Log().at(4), "Information: Days before password expiration = 0");
    EXPECT_EQ(Log().at(5), "Information: Password status = Expiring after days/hours = 0/0");
    EXPECT_EQ(Log().size(), 6U);
}

TEST_F(DirectoryExpiry, WithDaysBelow0IsExpired) {
    DaysLeft(-0.25);
    StartDiagnosing();
    EXPECT_EQ(Check(), 2);
    EXPECT_EQ(Report(), kExpiredLine);
    EXPECT_EQ(Log().at(4), "Information: Days before password expiration = -0.25");
    EXPECT_EQ(Log().at(5), "Information: Password status = Expired");
    EXPECT_EQ(Log().size(), 6U);
}

TEST_F(DirectoryExpiry, TheReminderSpanExactlyIs0AndALittleLessIs1) {
    DaysLeft(14);
    EXPECT_EQ(Check(), 0);
    EXPECT_EQ(Report(), "");
    DaysLeft(14 - 0.03125);
    EXPECT_EQ(Check(), 1);
    EXPECT_EQ(Report(), "message 4: phrase 8: \\\\ARCHIVE, 13, 23, noun 5 of 13, noun 6 of 23\r\n");
}

TEST_F(DirectoryExpiry, DaysAndHoursAreWholeOnes) {
    gReminderTime = 400 * 86400;
    const std::pair<double, const char*> spans[] = {
        {0.03125, "0, 00, noun 5 of 0, noun 6 of 0"},  {0.0625, "0, 01, noun 5 of 0, noun 6 of 1"},
        {0.96875, "0, 23, noun 5 of 0, noun 6 of 23"}, {1, "1, 00, noun 5 of 1, noun 6 of 0"},
        {1.09375, "1, 02, noun 5 of 1, noun 6 of 2"},  {364.5, "364, 12, noun 5 of 364, noun 6 of 12"},
    };
    for (const auto& [days, wanted] : spans) {
        report.clear();
        DaysLeft(days);
        EXPECT_EQ(Check(), 1) << days;
        EXPECT_EQ(Report(), "message 4: phrase 8: \\\\ARCHIVE, " + std::string(wanted) + "\r\n");
    }
}

// No hour but every third is exact as a fraction of a day.
TEST_F(DirectoryExpiry, AWholeHourIsNotLostToTheFractionOfADate) {
    StartDiagnosing();
    for (int hour = 0; hour < 48; ++hour) {
        Expiry(DateValue{DateOf({2026, 3, 2 + (9 + hour) / 24, (9 + hour) % 24, 0, 0})});
        EXPECT_EQ(Check(), 1) << hour;
        std::string wanted = "Information: Password status = Expiring after days/hours = ";
        wanted += std::to_string(hour / 24) += '/';
        EXPECT_EQ(Log().back(), wanted += std::to_string(hour % 24));
    }
}

TEST_F(DirectoryExpiry, ThereAreNever24Hours) {
    DaysLeft(1 - 1e-6);
    Check();
    EXPECT_EQ(Report(), "message 4: phrase 8: \\\\ARCHIVE, 1, 00, noun 5 of 1, noun 6 of 0\r\n");
}

TEST_F(DirectoryExpiry, ASecondAheadOfAWholeDayIsTheHourBefore) {
    DaysLeft(2 - 1.0 / 86400);
    Check();
    EXPECT_EQ(Report(), "message 4: phrase 8: \\\\ARCHIVE, 1, 23, noun 5 of 1, noun 6 of 23\r\n");
}

TEST_F(DirectoryExpiry, AReminderOfLessThanAnHourReportsNoDaysLeft) {
    for (const std::int32_t seconds : {0, 1, 3599, -1, -3599}) {
        gReminderTime = seconds;
        for (const double days : {0.0, 0.001, 5.0}) {
            DaysLeft(days);
            EXPECT_EQ(Check(), 0) << seconds << " " << days;
        }
    }
    EXPECT_EQ(Report(), "");
    DaysLeft(-0.001);
    EXPECT_EQ(Check(), 2);
}

TEST_F(DirectoryExpiry, TheReminderCountsInWholeHours) {
    for (const std::int32_t seconds : {3600, 7199}) {
        gReminderTime = seconds;
        DaysLeft(0.03125);
        EXPECT_EQ(Check(), 1) << seconds;
        DaysLeft(0.0625);
        EXPECT_EQ(Check(), 0) << seconds;
    }
    gReminderTime = 7200;
    EXPECT_EQ(Check(), 1);
}

TEST_F(DirectoryExpiry, HoursThatDoNotFitIn16BitsAreAnOverflow) {
    const std::pair<std::int32_t, std::int32_t> reminders[] = {
        {117964799, 0},  {117964800, 6},  {118000000, 6},  {std::numeric_limits<std::int32_t>::max(), 6},
        {-117964800, 0}, {-117968399, 0}, {-117968400, 6}, {std::numeric_limits<std::int32_t>::min(), 6}};
    for (const auto& [seconds, wanted] : reminders) {
        gReminderTime = seconds;
        EXPECT_EQ(RaisedByCheck(), wanted) << seconds;
        EXPECT_EQ(world.OutstandingHandles(), 0U);
    }
}

TEST_F(DirectoryExpiry, TheGreatestSpanIs32767Hours) {
    gReminderTime = 117964799;
    DaysLeft(1365.25);
    EXPECT_EQ(Check(), 1);
    EXPECT_EQ(Report(), "message 4: phrase 8: \\\\ARCHIVE, 1365, 06, noun 5 of 1365, noun 6 of 6\r\n");
    DaysLeft(1365.3125);
    EXPECT_EQ(Check(), 0);
}

TEST_F(DirectoryExpiry, AnOverflowComesBehindTheLineOfTheDays) {
    gReminderTime = 117964800;
    StartDiagnosing();
    EXPECT_EQ(RaisedByCheck(), 6);
    EXPECT_EQ(Log().back(), "Information: Days before password expiration = 20");
    EXPECT_EQ(Report(), "");
}

TEST_F(DirectoryExpiry, AReminderTooLongIsNoMatterWhereItIsNotReached) {
    gReminderTime = 117964800;
    DaysLeft(-1);
    EXPECT_EQ(Check(), 2);
    Flags(kNeverBit);
    EXPECT_EQ(Check(), 0);
    Flags(kExpiredBit);
    EXPECT_EQ(Check(), 2);
}

TEST_F(DirectoryExpiry, ADateOfAnyKindIsReadAsItsDays) {
    const std::pair<Variant, PasswordStatus> answers[] = {
        {Variant(kNow + 3), 1},
        {Variant(46084), 1},
        {Variant(46083), 2},
        {Variant(46200), 0},
        {Variant(String(u"46090.5")), 1},
        {Variant(), 2},
        {Variant(false), 2},
        {Variant(true), 2},
        {Variant(DateValue{0}), 2},
        {Variant(DateValue{2958465}), 0},
    };
    for (std::size_t i = 0; i < std::size(answers); ++i) {
        Expiry(answers[i].first);
        EXPECT_EQ(Check(), answers[i].second) << i;
    }
}

TEST_F(DirectoryExpiry, ADateBefore1900IsExpired) {
    StartDiagnosing();
    for (const double date : {-0.625, -1.0, -1000.625, -657434.0}) {
        report.clear();
        Expiry(DateValue{date});
        EXPECT_EQ(Check(), 2) << date;
        EXPECT_EQ(Report(), kExpiredLine) << date;
    }
    EXPECT_EQ(Log().at(4), "Information: Days before password expiration = -46084");
    EXPECT_EQ(Log().at(16), "Information: Days before password expiration = -47084");
}

TEST_F(DirectoryExpiry, ADateBeyondAllDatesLasts) {
    StartDiagnosing();
    for (const double date :
         {1e15, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        Expiry(DateValue{date});
        EXPECT_EQ(Check(), 0) << date;
    }
    Expiry(DateValue{-std::numeric_limits<double>::infinity()});
    EXPECT_EQ(Check(), 2);
}

TEST_F(DirectoryExpiry, ADateThatIsNoneIsAnError) {
    const std::pair<Variant, std::int32_t> answers[] = {{Variant(NullValue()), 94},
                                                        {Variant(ForeignValue()), 13},
                                                        {Variant(String(u"tomorrow")), 13},
                                                        {Variant(String()), 13}};
    for (const auto& [value, wanted] : answers) {
        Expiry(value);
        EXPECT_EQ(RaisedByCheck(), wanted);
        EXPECT_EQ(world.OutstandingHandles(), 0U);
    }
    EXPECT_EQ(Report(), "");
}

TEST_F(DirectoryExpiry, TheDaysAreLoggedInSinglePrecision) {
    const std::pair<double, const char*> days[] = {
        {20.5, "20.5"},   {0.125, "0.125"}, {1.0 / 3, "0.3333333"},
        {100.0, "100"},   {-0.5, "-0.5"},   {1234.56789, "1234.568"},
        {-2.75, "-2.75"}, {1e-4, "0.0001"}, {41.98765, "41.98765"}};
    for (const auto& [left, wanted] : days) {
        DaysLeft(left);
        StartDiagnosing();
        Check();
        EXPECT_EQ(Log().at(4), std::string("Information: Days before password expiration = ") + wanted);
        world.files.Remove(kLogFile);
    }
}

} // namespace kestrelmoor::tests
