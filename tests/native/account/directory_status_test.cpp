#include "tests/native/account/directory_status.h"

#include "shell/program_state.h"

#include <algorithm>
#include <limits>

namespace kestrelmoor::tests {

namespace {

constexpr char kAccountState[] =
    "Information: Password status = Account disabled, locked or user can't change password";

/// Numbers of a failed bind that tell of the account, with the code of the system in each.
constexpr std::uint32_t kRestricted[] = {0x8007052F, 0x80070530, 0x80070531, 0x80070533, 0x80070557,
                                         0x80070564, 0x80070569, 0x80070701, 0x80070775};
constexpr std::uint32_t kExpired[] = {0x80070532, 0x80070773, 0x800708C2};
constexpr std::uint32_t kInvalid[] = {0x80070056, 0x8007052E, 0x80070005};

/// Their neighbours, the same codes without the system's mark, and other ways to fail.
constexpr std::uint32_t kUntold[] = {
    0x8007052D, 0x80070534, 0x80070556, 0x80070558, 0x80070563, 0x80070565, 0x80070568, 0x8007056A,
    0x80070700, 0x80070702, 0x80070772, 0x80070774, 0x80070776, 0x800708C1, 0x800708C3, 0x800708AD,
    0x80070035, 0x80070055, 0x80070057, 0x8007000E, 0x00070532, 0x80080532, 0xC0070532, 0x800401E4,
    0x80005000, 0x8000500D, 0x80004005, 0x80040154, 1327,       1330,       1326,       86};

} // namespace

TEST_F(DirectoryStatus, OfAPasswordThatLastsIs0WithItsLinesInOrder) {
    StartDiagnosing();
    EXPECT_EQ(Check(), 0);
    EXPECT_EQ(Report(), "");
    EXPECT_EQ(Log(), (Lines{kBinding, kReadingFlags, "Information: UserFlags = &H200",
                            "Information: Password status = OK",
                            "Information: Days before password expiration = 20"}));
    EXPECT_EQ(Reads(), (Lines{R"(IADsUser.Get("UserFlags"))", R"(IADsUser.Get("PasswordExpired"))",
                              "IADsUser.PasswordExpirationDate()"}));
}

TEST_F(DirectoryStatus, WritesEachLineWhereItIsTold) {
    StartDiagnosing();
    DaysLeft(1.5);
    Check();
    EXPECT_EQ(Names(), (Lines{"Append", "GetObject", "Append", "IADsUser.Get", "Append", "IADsUser.Get",
                              "Append", "IADsUser.PasswordExpirationDate", "Append", "Append"}));
    EXPECT_EQ(Log().back(), "Information: Password status = Expiring after days/hours = 1/12");
}

TEST_F(DirectoryStatus, OfThisComputerIsAskedByItsName) {
    EXPECT_EQ(Check(u""), 1);
    EXPECT_EQ(Report(), "message 4: phrase 7, 7, 00, noun 5 of 7, noun 6 of 0\r\n");
    EXPECT_EQ(CallsOf({"GetObject"}), Lines{R"(GetObject("WinNT://WORKBENCH/user,user"))"});
}

TEST_F(DirectoryStatus, OfADomainIsAskedOfTheDomain) {
    gReminderTime = 56 * 86400;
    EXPECT_EQ(Check(u"PRACTICE"), 1);
    EXPECT_EQ(Report(), "message 4: phrase 9: PRACTICE, 55, 00, noun 5 of 55, noun 6 of 0\r\n");
    EXPECT_EQ(CallsOf({"GetObject", "NetGetDCName"}), Lines{R"(GetObject("WinNT://PRACTICE/user,user"))"});
}

TEST_F(DirectoryStatus, IsOfTheKnownUser) {
    gUserName = u"somebody";
    EXPECT_EQ(Check(), -1);
    EXPECT_EQ(CallsOf({"GetObject"}), Lines{R"(GetObject("WinNT://ARCHIVE/somebody,user"))"});
}

TEST_F(DirectoryStatus, OfARestrictedBindIs0WithMessage21) {
    for (const std::uint32_t result : kRestricted) {
        report.clear();
        RefuseBind(result);
        EXPECT_EQ(Check(), 0) << std::hex << result;
        EXPECT_EQ(Report(), "message 21: phrase 8: \\\\ARCHIVE\r\n") << std::hex << result;
    }
    EXPECT_EQ(Reads(), Lines{});
}

TEST_F(DirectoryStatus, OfARestrictedBindLeavesItsLines) {
    StartDiagnosing();
    CheckRefused(kRestricted);
    Lines wanted;
    for (const char* const failure :
         {"-2147023569, GetObject, system 1327", "-2147023568, GetObject, system 1328",
          "-2147023567, GetObject, system 1329", "-2147023565, GetObject, system 1331",
          "-2147023529, GetObject, system 1367", "-2147023516, GetObject, system 1380",
          "-2147023511, GetObject, system 1385", "-2147023103, GetObject, system 1793",
          "-2147022987, GetObject, system 1909"}) {
        wanted.emplace_back(kBinding);
        wanted.push_back(std::string("Error: message 12: ") + failure);
        wanted.emplace_back(
            "Information: Password status = Account disabled, locked or otherwise restricted");
    }
    EXPECT_EQ(Log(), wanted);
}

TEST_F(DirectoryStatus, OfAnExpiredBindIs2WithMessage3) {
    for (const std::uint32_t result : kExpired) {
        report.clear();
        RefuseBind(result);
        EXPECT_EQ(Check(), 2) << std::hex << result;
        EXPECT_EQ(Report(), kExpiredLine) << std::hex << result;
    }
    EXPECT_EQ(Reads(), Lines{});
}

TEST_F(DirectoryStatus, OfAnExpiredBindLeavesItsLines) {
    StartDiagnosing();
    CheckRefused(kExpired);
    EXPECT_EQ(Log(), (Lines{kBinding, "Error: message 12: -2147023566, GetObject, system 1330",
                            "Information: Password status = Expired", kBinding,
                            "Error: message 12: -2147022989, GetObject, system 1907",
                            "Information: Password status = Expired", kBinding,
                            "Error: message 12: -2147022654, GetObject, network 2242",
                            "Information: Password status = Expired"}));
}

TEST_F(DirectoryStatus, OfAnInvalidBindIs4WithMessage19) {
    for (const std::uint32_t result : kInvalid) {
        report.clear();
        RefuseBind(result);
        EXPECT_EQ(Check(), 4) << std::hex << result;
        EXPECT_EQ(Report(), "message 19: phrase 8: \\\\ARCHIVE\r\n") << std::hex << result;
    }
    EXPECT_EQ(Reads(), Lines{});
}

TEST_F(DirectoryStatus, OfAnInvalidBindLeavesItsLines) {
    StartDiagnosing();
    CheckRefused(kInvalid);
    EXPECT_EQ(Log(), (Lines{kBinding, "Error: message 12: -2147024810, GetObject, system 86",
                            "Information: Password status = Invalid", kBinding,
                            "Error: message 12: -2147023570, GetObject, system 1326",
                            "Information: Password status = Invalid", kBinding,
                            "Error: message 12: 70, GetObject, system 5",
                            "Information: Password status = Invalid"}));
}

TEST_F(DirectoryStatus, OfAnyOtherBindIsMinusOneWithoutALine) {
    for (const std::uint32_t result : kUntold) {
        RefuseBind(result);
        EXPECT_EQ(Check(), -1) << std::hex << result;
    }
    EXPECT_EQ(Report(), "");
}

TEST_F(DirectoryStatus, OfAnyOtherBindEndsWithTheErrorLine) {
    StartDiagnosing();
    EXPECT_EQ(Check(u"\\\\MISSING"), -1);
    EXPECT_EQ(Log(), (Lines{R"(Information: -> GetObject "WinNT://MISSING/user,user")",
                            "Error: message 12: -2147024843, GetObject, system 53"}));
}

TEST_F(DirectoryStatus, ByTheExpiredFlagIs2WithNothingElseRead) {
    Flags(kOrdinary | kExpiredBit);
    StartDiagnosing();
    EXPECT_EQ(Check(), 2);
    EXPECT_EQ(Report(), kExpiredLine);
    EXPECT_EQ(Log(), (Lines{kBinding, kReadingFlags, "Information: UserFlags = &H800200",
                            "Information: Password status = Expired"}));
    EXPECT_EQ(Reads(), Lines{R"(IADsUser.Get("UserFlags"))"});
}

TEST_F(DirectoryStatus, ByTheExpiredAttributeHasItsLineBehindTheRead) {
    Say(u"ARCHIVE", u"PasswordExpired", 1);
    StartDiagnosing();
    EXPECT_EQ(Check(), 2);
    EXPECT_EQ(Report(), kExpiredLine);
    EXPECT_EQ(Log(), (Lines{kBinding, kReadingFlags, "Information: UserFlags = &H200",
                            R"(Information: -> IADsUser.Get "PasswordExpired")",
                            "Information: Password status = Expired"}));
    EXPECT_EQ(Names(), (Lines{"Append", "GetObject", "Append", "IADsUser.Get", "Append", "IADsUser.Get",
                              "Append", "Append"}));
    EXPECT_FALSE(DateWasRead());
}

TEST_F(DirectoryStatus, ANullExpiredAttributeCountsAsFalse) {
    Say(u"ARCHIVE", u"PasswordExpired", NullValue());
    StartDiagnosing();
    EXPECT_EQ(Check(), 0);
    EXPECT_EQ(Log().at(3), "Information: Password status = OK");
    EXPECT_TRUE(DateWasRead());
}

TEST_F(DirectoryStatus, TheExpiredAttributeCanBeOfAnyKindThatIsTrueOrFalse) {
    const std::pair<Variant, PasswordStatus> answers[] = {
        {Variant(), 0},
        {Variant(false), 0},
        {Variant(true), 2},
        {Variant(-1), 2},
        {Variant(256), 2},
        {Variant(0.0), 0},
        {Variant(0.25), 2},
        {Variant(DateValue{0}), 0},
        {Variant(DateValue{46083}), 2},
        {Variant(String(u"True")), 2},
        {Variant(String(u"False")), 0},
        {Variant(String(u"1")), 2},
        {Variant(String(u"0")), 0},
    };
    for (std::size_t i = 0; i < std::size(answers); ++i) {
        Say(u"ARCHIVE", u"PasswordExpired", answers[i].first);
        EXPECT_EQ(Check(), answers[i].second) << i;
    }
}

TEST_F(DirectoryStatus, AnExpiredAttributeThatIsNeitherIsAnError) {
    for (const Variant& value : {Variant(ForeignValue()), Variant(String(u"perhaps")), Variant(String())}) {
        Say(u"ARCHIVE", u"PasswordExpired", value);
        EXPECT_EQ(RaisedByCheck(), 13);
        EXPECT_EQ(world.OutstandingHandles(), 0U);
    }
    EXPECT_EQ(Report(), "");
}

TEST_F(DirectoryStatus, AnAccountThatCannotBeServedIsStillReportedByItsDate) {
    for (const std::int32_t bit : {2, 16, 64}) {
        Flags(kOrdinary | bit);
        report.clear();
        DaysLeft(1);
        EXPECT_EQ(Check(), 1) << bit;
        EXPECT_EQ(Report(), "message 4: phrase 8: \\\\ARCHIVE, 1, 00, noun 5 of 1, noun 6 of 0\r\n");
        report.clear();
        DaysLeft(-1);
        EXPECT_EQ(Check(), 2) << bit;
        EXPECT_EQ(Report(), kExpiredLine);
        DaysLeft(20);
        EXPECT_EQ(Check(), 0) << bit;
    }
}

TEST_F(DirectoryStatus, AnAccountThatCannotBeServedLeavesItsLineBehindThatOfThePassword) {
    Flags(kOrdinary | 2);
    StartDiagnosing();
    Check();
    EXPECT_EQ(Log(), (Lines{kBinding, kReadingFlags, "Information: UserFlags = &H202",
                            "Information: Password status = OK", kAccountState,
                            "Information: Days before password expiration = 20"}));
}

TEST_F(DirectoryStatus, AFlagOfNoAccountStateChangesNothing) {
    for (const std::int32_t bit : {1, 4, 8, 32, 128, 256, 0x400, 0x20000, 0x400000, 0x1000000}) {
        Flags(bit);
        StartDiagnosing();
        EXPECT_EQ(Check(), 0) << bit;
        EXPECT_EQ(Log().back(), "Information: Days before password expiration = 20") << bit;
        EXPECT_EQ(std::ranges::count(Log(), kAccountState), 0) << bit;
    }
}

TEST_F(DirectoryStatus, OfAnExpiredAccountThatCannotBeServedIsDecidedByTheDate) {
    Flags(kExpiredBit | 2);
    StartDiagnosing();
    EXPECT_EQ(Check(), 0);
    EXPECT_EQ(Report(), "");
    EXPECT_EQ(Log(), (Lines{kBinding, kReadingFlags, "Information: UserFlags = &H800002",
                            "Information: Password status = Expired", kAccountState,
                            "Information: Days before password expiration = 20"}));
    DaysLeft(0.5);
    EXPECT_EQ(Check(), 1);
}

TEST_F(DirectoryStatus, TheAccountsStateOverridesTheExpiredAttributeToo) {
    Flags(64);
    Say(u"ARCHIVE", u"PasswordExpired", true);
    EXPECT_EQ(Check(), 0);
    EXPECT_EQ(Report(), "");
    EXPECT_TRUE(DateWasRead());
}

TEST_F(DirectoryStatus, OfAPasswordThatNeverExpiresReadsNoDate) {
    Flags(kOrdinary | kNeverBit);
    StartDiagnosing();
    EXPECT_EQ(Check(), 0);
    EXPECT_EQ(Report(), "");
    EXPECT_EQ(Log(),
              (Lines{kBinding, kReadingFlags, "Information: UserFlags = &H10200",
                     "Information: Password status = OK", "Information: Password status = Never expires"}));
    EXPECT_FALSE(DateWasRead());
}

TEST_F(DirectoryStatus, AnExpiredPasswordOutranksOneThatNeverExpires) {
    Flags(kExpiredBit | kNeverBit);
    EXPECT_EQ(Check(), 2);
    EXPECT_EQ(Report(), kExpiredLine);
}

TEST_F(DirectoryStatus, OfADisabledAccountThatNeverExpiresIs0WithBothLines) {
    Flags(kExpiredBit | kNeverBit | 2);
    StartDiagnosing();
    EXPECT_EQ(Check(), 0);
    EXPECT_EQ(Log(), (Lines{kBinding, kReadingFlags, "Information: UserFlags = &H810002",
                            "Information: Password status = Expired", kAccountState,
                            "Information: Password status = Never expires"}));
    EXPECT_FALSE(DateWasRead());
}

TEST_F(DirectoryStatus, FlagsOfAnyKindAreMadeA32BitNumber) {
    const std::pair<Variant, const char*> answers[] = {
        {Variant(), "UserFlags = &H0"},
        {Variant(false), "UserFlags = &H0"},
        {Variant(true), "UserFlags = &HFFFFFFFF"},
        {Variant(66048.4), "UserFlags = &H10200"},
        {Variant(512.5), "UserFlags = &H200"},
        {Variant(513.5), "UserFlags = &H202"},
        {Variant(DateValue{512.25}), "UserFlags = &H200"},
        {Variant(String(u"66048")), "UserFlags = &H10200"},
        {Variant(String(u"&H10")), "UserFlags = &H10"},
        {Variant(std::numeric_limits<std::int32_t>::min()), "UserFlags = &H80000000"},
    };
    for (const auto& [value, wanted] : answers) {
        Flags(value);
        StartDiagnosing();
        EXPECT_EQ(Check(), 0) << wanted;
        EXPECT_EQ(std::ranges::count(Log(), std::string("Information: ") + wanted), 1) << wanted;
        world.files.Remove(kLogFile);
    }
}

TEST_F(DirectoryStatus, FlagsThatAreNoSuchNumberAreAnErrorBehindTheLineOfTheirRead) {
    const std::pair<Variant, std::int32_t> answers[] = {
        {Variant(NullValue()), 94}, {Variant(ForeignValue()), 13},      {Variant(String(u"none")), 13},
        {Variant(String()), 13},    {Variant(4294967295.0), 6},         {Variant(String(u"4294967295")), 6},
        {Variant(-3e9), 6},         {Variant(DateValue{3000000000}), 6}};
    for (const auto& [value, wanted] : answers) {
        Flags(value);
        EXPECT_EQ(RaisedByCheck(), wanted);
        EXPECT_EQ(world.OutstandingHandles(), 0U);
    }
    EXPECT_EQ(Report(), "");
    StartDiagnosing();
    EXPECT_EQ(RaisedByCheck(), 6);
    EXPECT_EQ(Log(), (Lines{kBinding, kReadingFlags}));
}

TEST_F(DirectoryStatus, AReadThatFailsIsAnErrorWithTheServicesOwnNumber) {
    for (const char16_t* const member : {u"PasswordExpirationDate", u"PasswordExpired", u"UserFlags"}) {
        Refuse(u"ARCHIVE", member, 0x8000500D, u"no such property");
        const auto error = Raised([this] { Check(); });
        ASSERT_TRUE(error) << ToUtf8(member);
        EXPECT_EQ(static_cast<std::uint32_t>(error->number()), 0x8000500DU);
        EXPECT_EQ(error->description(), u"no such property");
        EXPECT_EQ(world.OutstandingHandles(), 0U);
    }
    EXPECT_EQ(Report(), "");
    EXPECT_EQ(CallsOf({"NetUserGetInfo"}), Lines{});
}

TEST_F(DirectoryStatus, AReadThatFailsAsABindMayFailIsAnErrorAllTheSame) {
    for (const std::uint32_t result : {0x80070532U, 0x80070533U, 0x8007052EU}) {
        Refuse(u"ARCHIVE", u"UserFlags", result);
        EXPECT_EQ(static_cast<std::uint32_t>(RaisedByCheck()), result);
    }
    Refuse(u"ARCHIVE", u"UserFlags", 0x80070005);
    EXPECT_EQ(RaisedByCheck(), 70);
}

TEST_F(DirectoryStatus, WithoutADateIsAnErrorBehindTheLineOfThePassword) {
    Refuse(u"ARCHIVE", u"PasswordExpirationDate", 0x8000500D);
    StartDiagnosing();
    EXPECT_EQ(static_cast<std::uint32_t>(RaisedByCheck()), 0x8000500DU);
    EXPECT_EQ(Log(), (Lines{kBinding, kReadingFlags, "Information: UserFlags = &H200",
                            "Information: Password status = OK"}));
}

TEST_F(DirectoryStatus, AddsToTheReportThatItIsGiven) {
    report = u"before\r\n";
    DaysLeft(-1);
    Check();
    RefuseBind(0x80070056);
    Check();
    EXPECT_EQ(Report(),
              "before\r\nmessage 3: phrase 8: \\\\ARCHIVE\r\nmessage 19: phrase 8: \\\\ARCHIVE\r\n");
}

TEST_F(DirectoryStatus, BindsAnewEachTimeAndFreesTheObject) {
    Check();
    Check();
    EXPECT_EQ(world.calls.Count("GetObject"), 2U);
    EXPECT_EQ(world.OutstandingHandles(), 0U);
}

TEST_F(DirectoryStatus, LogsNothingWhileNotDiagnosing) {
    OpenLog();
    Check();
    for (const double days : {1.0, -1.0}) {
        DaysLeft(days);
        Check();
    }
    for (const std::int32_t flags : {kExpiredBit, kNeverBit, 2}) {
        Flags(flags);
        Check();
    }
    for (const std::uint32_t result : {0x80070532U, 0x80070533U, 0x80070056U, 0x80070035U}) {
        RefuseBind(result);
        Check();
    }
    EXPECT_EQ(Log(), Lines{});
}

} // namespace kestrelmoor::tests
