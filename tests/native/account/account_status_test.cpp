#include "account/password_policy.h"

#include "shell/program_state.h"
#include "tests/native/account/account_test.h"

#include <utility>

namespace kestrelmoor::tests {

namespace {

constexpr char16_t kArchive[] = u"\\\\ARCHIVE";
constexpr std::int32_t kDay = 86400;

/// A check through the network API.
class AccountStatus : public AccountTest {
  protected:
    PasswordStatus Check(const String& sTarget = kArchive) { return CheckPasswordStatus(report, sTarget); }

    /// Lets the password of the server last so many seconds. An account's own mark of expiry doesn't follow
    /// the policy then, as when the policy was changed between the two calls.
    void LetLast(std::int64_t seconds) {
        constexpr std::uint32_t kAge = 1000000;
        world.SetPasswordAge(AccountAt(kArchive), kAge);
        PolicyAt(kArchive).max_age = practice::kForever;
        world.calls.Before("NetUserModalsGet", [this, seconds] {
            PolicyAt(kArchive).max_age = static_cast<std::uint32_t>(kAge + seconds);
        });
    }

    void ExpectNothingAsked(std::initializer_list<std::string_view> names) {
        EXPECT_EQ(CallsOf(names), Lines{});
    }
};

class Targets : public AccountTest {};

} // namespace

TEST_F(Targets, AreDescribedByTheirForm) {
    EXPECT_EQ(DescribeTarget(u""), u"phrase 7");
    EXPECT_EQ(DescribeTarget(u"\\\\ARCHIVE"), u"phrase 8: \\\\ARCHIVE");
    EXPECT_EQ(DescribeTarget(u"PRACTICE"), u"phrase 9: PRACTICE");
    EXPECT_EQ(DescribeTarget(u"practice.test"), u"phrase 9: practice.test");
    EXPECT_EQ(DescribeTarget(u"\\ARCHIVE"), u"phrase 9: \\ARCHIVE");
    EXPECT_EQ(DescribeTarget(u"\\\\"), u"phrase 8: \\\\");
}

TEST_F(Targets, ReportLinesAreAddedEachWithItsLineEnd) {
    AddReportLine(report, 3, u"");
    AddReportLine(report, 19, u"PRACTICE");
    AddExpiringLine(report, u"\\\\ARCHIVE", 93600);
    EXPECT_EQ(Report(), "message 3: phrase 7\r\n"
                        "message 19: phrase 9: PRACTICE\r\n"
                        "message 4: phrase 8: \\\\ARCHIVE, 1, 02, noun 5 of 1, noun 6 of 2\r\n");
}

TEST_F(AccountStatus, OfThisComputerIsAskedWithoutAName) {
    StartDiagnosing();
    EXPECT_EQ(Check(u""), 1);
    EXPECT_EQ(Report(), "message 4: phrase 7, 7, 00, noun 5 of 7, noun 6 of 0\r\n");
    EXPECT_EQ(Log(), (Lines{R"(Information: -> NetUserGetInfo "" "user")",
                            "Information: Password status = OK", R"(Information: -> NetUserModalsGet "")",
                            "Information: Max PWD Age = 3628800", "Information: Min PWD Length = 4",
                            "Information: Seconds before password expiration = 604800",
                            "Information: Password status = Expiring after days/hours = 7/0"}));
    EXPECT_EQ(CallsOf({"NetUserGetInfo", "NetUserModalsGet", "NetWkstaGetInfo"}),
              (Lines{R"(NetUserGetInfo("", "user"))", R"(NetUserModalsGet(""))"}));
}

TEST_F(AccountStatus, OfADomainIsAskedOfItsController) {
    StartDiagnosing();
    EXPECT_EQ(Check(u"PRACTICE"), 0);
    EXPECT_EQ(Report(), "");
    EXPECT_EQ(Log(),
              (Lines{R"(Information: -> NetGetDCName "PRACTICE")", R"(Information: Primary DC Name = \\DC1)",
                     R"(Information: -> NetUserGetInfo "\\DC1" "user")", "Information: Password status = OK",
                     R"(Information: -> NetUserModalsGet "\\DC1")", "Information: Max PWD Age = 7776000",
                     "Information: Min PWD Length = 8",
                     "Information: Seconds before password expiration = 4752600"}));
}

TEST_F(AccountStatus, OfADomainNamesTheDomainAndNotItsController) {
    AccountAt(u"\\\\DC1").password_expired = true;
    EXPECT_EQ(Check(u"PRACTICE"), 2);
    EXPECT_EQ(Report(), "message 3: phrase 9: PRACTICE\r\n");
}

TEST_F(AccountStatus, AsksForTheKnownUser) {
    gUserName = u"somebody";
    EXPECT_EQ(Check(), 0);
    EXPECT_EQ(CallsOf({"NetUserGetInfo"}), Lines{R"(NetUserGetInfo("\\ARCHIVE", "somebody"))"});
}

TEST_F(AccountStatus, OfAnUnreachableControllerIs0WithoutALine) {
    world.network.FindDomain(u"PRACTICE")->controllers.at(0).reachable = false;
    EXPECT_EQ(Check(u"PRACTICE"), 0);
    EXPECT_EQ(Report(), "");
    ExpectNothingAsked({"NetUserGetInfo", "NetUserModalsGet"});
}

TEST_F(AccountStatus, OfAnAnswerThatIsNotInTheTableIs0WithoutALine) {
    for (const std::uint32_t code : {53U, 86U, 1331U, 2221U}) {
        world.Fail("NetUserGetInfo", code);
        EXPECT_EQ(Check(), 0) << code;
    }
    EXPECT_EQ(Report(), "");
    ExpectNothingAsked({"NetUserModalsGet"});
}

TEST_F(AccountStatus, OfAFailureEndsWithItsErrorLine) {
    StartDiagnosing();
    world.Fail("NetUserGetInfo", 53);
    Check();
    EXPECT_EQ(Log(), (Lines{R"(Information: -> NetUserGetInfo "\\ARCHIVE" "user")",
                            "Error: message 12: 53, NetUserGetInfo, system 53"}));
}

TEST_F(AccountStatus, OfARefusedUserIs4WithMessage19) {
    for (const std::uint32_t code : {5U, 1326U, 2203U}) {
        report.clear();
        world.Fail("NetUserGetInfo", code);
        EXPECT_EQ(Check(), 4) << code;
        EXPECT_EQ(Report(), "message 19: phrase 8: \\\\ARCHIVE\r\n") << code;
    }
    ExpectNothingAsked({"NetUserModalsGet"});
}

TEST_F(AccountStatus, OfAnExpiredPasswordIs2WithMessage3) {
    for (const std::uint32_t code : {1330U, 1907U, 2242U}) {
        report.clear();
        world.Fail("NetUserGetInfo", code);
        EXPECT_EQ(Check(), 2) << code;
        EXPECT_EQ(Report(), "message 3: phrase 8: \\\\ARCHIVE\r\n") << code;
    }
    ExpectNothingAsked({"NetUserModalsGet"});
}

TEST_F(AccountStatus, OfAMarkedAccountIs2WithNoLineBehindTheOkOfTheCall) {
    AccountAt(kArchive).password_expired = true;
    StartDiagnosing();
    EXPECT_EQ(Check(), 2);
    EXPECT_EQ(Report(), "message 3: phrase 8: \\\\ARCHIVE\r\n");
    EXPECT_EQ(Log(), (Lines{R"(Information: -> NetUserGetInfo "\\ARCHIVE" "user")",
                            "Information: Password status = OK"}));
}

TEST_F(AccountStatus, OfAnAccountThatCannotBeServedIs0) {
    using Mark = bool practice::Account::*;
    for (const Mark mark : {&practice::Account::disabled, &practice::Account::locked,
                            &practice::Account::cannot_change_password}) {
        AccountAt(kArchive).*mark = true;
        EXPECT_EQ(Check(), 0);
        AccountAt(kArchive).*mark = false;
    }
    EXPECT_EQ(Report(), "");
    ExpectNothingAsked({"NetUserModalsGet"});
}

TEST_F(AccountStatus, OfADisabledAccountWithAnExpiredPasswordIs0) {
    AccountAt(kArchive).disabled = AccountAt(kArchive).password_expired = true;
    StartDiagnosing();
    EXPECT_EQ(Check(), 0);
    EXPECT_EQ(Report(), "");
    EXPECT_EQ(Log(), (Lines{R"(Information: -> NetUserGetInfo "\\ARCHIVE" "user")",
                            "Information: Password status = OK",
                            "Information: Password status = Account disabled, locked or user can't change "
                            "password"}));
}

TEST_F(AccountStatus, OfAPasswordThatNeverExpiresAsksForNoPolicy) {
    AccountAt(kArchive).password_never_expires = true;
    StartDiagnosing();
    EXPECT_EQ(Check(), 0);
    EXPECT_EQ(Report(), "");
    ExpectNothingAsked({"NetUserModalsGet"});
    EXPECT_EQ(Log().size(), 2U);
}

TEST_F(AccountStatus, OfAnExpiredPasswordThatNeverExpiresIs2) {
    AccountAt(kArchive).password_never_expires = AccountAt(kArchive).password_expired = true;
    EXPECT_EQ(Check(), 2);
}

TEST_F(AccountStatus, WithoutAPolicyIs0) {
    world.Fail("NetUserModalsGet", 5);
    StartDiagnosing();
    EXPECT_EQ(Check(), 0);
    EXPECT_EQ(Report(), "");
    EXPECT_EQ(Log().back(), "Error: message 12: 5, NetUserModalsGet, system 5");
}

TEST_F(AccountStatus, WithoutAGreatestAgeNeverExpires) {
    StartDiagnosing();
    EXPECT_EQ(Check(), 0);
    EXPECT_EQ(Report(), "");
    EXPECT_EQ(
        Log(),
        (Lines{R"(Information: -> NetUserGetInfo "\\ARCHIVE" "user")", "Information: Password status = OK",
               R"(Information: -> NetUserModalsGet "\\ARCHIVE")", "Information: Max PWD Age = -1",
               "Information: Min PWD Length = 6", "Information: Password status = Never expires"}));
}

TEST_F(AccountStatus, WithTheGreatestAgeButOneIsCountedWithoutTheTopBit) {
    PolicyAt(kArchive).max_age = 0xFFFFFFFE;
    StartDiagnosing();
    EXPECT_EQ(Check(), 0);
    EXPECT_EQ(Log().at(3), "Information: Max PWD Age = -2");
    EXPECT_EQ(Log().back(), "Information: Seconds before password expiration = 2144459946");
}

TEST_F(AccountStatus, AnAgeBeyond31BitsIsCountedWithoutTheTopBit) {
    LetLast(0);
    world.SetPasswordAge(AccountAt(kArchive), 0x80000005);
    StartDiagnosing();
    EXPECT_EQ(Check(), 1);
    EXPECT_EQ(Log().at(5), "Information: Seconds before password expiration = 999995");
}

TEST_F(AccountStatus, The31BitsMeetWithoutAnOverflow) {
    world.SetPasswordAge(AccountAt(kArchive), 0x7FFFFFFF);
    world.calls.Before("NetUserModalsGet", [this] { PolicyAt(kArchive).max_age = 0x80000000; });
    StartDiagnosing();
    EXPECT_EQ(Check(), 2);
    EXPECT_EQ(Log().at(5), "Information: Seconds before password expiration = -2147483647");
}

TEST_F(AccountStatus, WithNoSecondsLeftIsExpiringInNoDaysAndNoHours) {
    LetLast(0);
    StartDiagnosing();
    EXPECT_EQ(Check(), 1);
    EXPECT_EQ(Report(), "message 4: phrase 8: \\\\ARCHIVE, 0, 00, noun 5 of 0, noun 6 of 0\r\n");
    EXPECT_EQ(Log().at(5), "Information: Seconds before password expiration = 0");
    EXPECT_EQ(Log().at(6), "Information: Password status = Expiring after days/hours = 0/0");
}

TEST_F(AccountStatus, OneSecondTooLateIsExpired) {
    LetLast(-1);
    StartDiagnosing();
    EXPECT_EQ(Check(), 2);
    EXPECT_EQ(Report(), "message 3: phrase 8: \\\\ARCHIVE\r\n");
    EXPECT_EQ(Log().at(5), "Information: Seconds before password expiration = -1");
    EXPECT_EQ(Log().at(6), "Information: Password status = Expired");
    EXPECT_EQ(Log().size(), 7U);
}

TEST_F(AccountStatus, AGreatestAgeOf0WithAnyAgeIsExpired) {
    world.SetPasswordAge(AccountAt(kArchive), 1);
    world.calls.Before("NetUserModalsGet", [this] { PolicyAt(kArchive).max_age = 0; });
    EXPECT_EQ(Check(), 2);
}

TEST_F(AccountStatus, TheReminderTimeExactlyIs0AndOneSecondLessIs1) {
    LetLast(gReminderTime);
    StartDiagnosing();
    EXPECT_EQ(Check(), 0);
    EXPECT_EQ(Report(), "");
    EXPECT_EQ(Log().back(), "Information: Seconds before password expiration = 1209600");
    LetLast(gReminderTime - 1);
    EXPECT_EQ(Check(), 1);
    EXPECT_EQ(Report(), "message 4: phrase 8: \\\\ARCHIVE, 13, 23, noun 5 of 13, noun 6 of 23\r\n");
}

TEST_F(AccountStatus, AnyReminderTimeIsComparedInSeconds) {
    const std::pair<std::int32_t, PasswordStatus> reminders[] = {{0, 0}, {-1, 0},        {5, 0},
                                                                 {6, 1}, {117964800, 1}, {2147483647, 1}};
    for (const auto& [seconds, wanted] : reminders) {
        LetLast(5);
        gReminderTime = seconds;
        EXPECT_EQ(Check(), wanted) << seconds;
    }
}

TEST_F(AccountStatus, DaysAndHoursAreWholeOnes) {
    const std::pair<std::int32_t, const char*> spans[] = {
        {3599, "0, 00, noun 5 of 0, noun 6 of 0"},
        {3600, "0, 01, noun 5 of 0, noun 6 of 1"},
        {kDay - 1, "0, 23, noun 5 of 0, noun 6 of 23"},
        {kDay, "1, 00, noun 5 of 1, noun 6 of 0"},
        {kDay + 7199, "1, 01, noun 5 of 1, noun 6 of 1"},
        {10 * kDay + 36000, "10, 10, noun 5 of 10, noun 6 of 10"},
    };
    for (const auto& [seconds, wanted] : spans) {
        report.clear();
        LetLast(seconds);
        EXPECT_EQ(Check(), 1) << seconds;
        EXPECT_EQ(Report(), "message 4: phrase 8: \\\\ARCHIVE, " + std::string(wanted) + "\r\n");
    }
}

TEST_F(AccountStatus, DaysOfMoreThanThreeDigitsAreWrittenOut) {
    gReminderTime = 2147483647;
    LetLast(2000000000);
    EXPECT_EQ(Check(), 1);
    EXPECT_EQ(Report(), "message 4: phrase 8: \\\\ARCHIVE, 23148, 03, noun 5 of 23148, noun 6 of 3\r\n");
}

TEST_F(AccountStatus, AddsToTheReportThatItIsGiven) {
    report = u"before\r\n";
    AccountAt(kArchive).password_expired = true;
    Check();
    Check();
    EXPECT_EQ(Report(), "before\r\nmessage 3: phrase 8: \\\\ARCHIVE\r\nmessage 3: phrase 8: \\\\ARCHIVE\r\n");
}

TEST_F(AccountStatus, LogsNothingWhileNotDiagnosing) {
    OpenLog();
    EXPECT_EQ(Check(u""), 1);
    LetLast(-1);
    EXPECT_EQ(Check(), 2);
    AccountAt(kArchive).disabled = true;
    Check();
    EXPECT_EQ(Log(), Lines{});
}

TEST_F(AccountStatus, ShowsNoBox) {
    world.Fail("NetUserGetInfo", 53);
    Check();
    world.Fail("NetUserModalsGet", 53);
    Check();
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

} // namespace kestrelmoor::tests
