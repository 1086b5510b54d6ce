#include "account/mAD.h"

#include "shell/program_state.h"
#include "tests/native/account/account_test.h"

namespace kestrelmoor::tests {

namespace {

constexpr char16_t kOld[] = u"Old-Password-1";
constexpr char16_t kNew[] = u"New-Password-2";

class DirectoryChange : public AccountTest {
  protected:
    DirectoryChange() { InstallDirectory(); }

    std::int32_t Change(const String& sTarget = u"\\\\ARCHIVE", const String& sOldPass = kOld) {
        return ADChangePassword(sOldPass, kNew, sTarget, error);
    }

    void Fail(std::uint32_t result, StringView description = u"") {
        Refuse(u"ARCHIVE", u"ChangePassword", result, description);
    }

    String error = u"untouched";
};

} // namespace

TEST_F(DirectoryChange, ChangesThePasswordOnTheTarget) {
    EXPECT_EQ(Change(), 0);
    EXPECT_EQ(error, u"untouched");
    EXPECT_EQ(AccountAt(u"\\\\ARCHIVE").password, kNew);
    EXPECT_EQ(AccountAt(u"").password, kOld);
}

TEST_F(DirectoryChange, ReachesTheLocalComputerAndADomain) {
    EXPECT_EQ(Change(u""), 0);
    EXPECT_EQ(Change(u"PRACTICE"), 0);
    EXPECT_EQ(AccountAt(u"").password, kNew);
    EXPECT_EQ(AccountAt(u"\\\\DC1").password, kNew);
    EXPECT_EQ(CallsOf({"GetObject"}), (Lines{R"(GetObject("WinNT://WORKBENCH/user,user"))",
                                             R"(GetObject("WinNT://PRACTICE/user,user"))"}));
}

TEST_F(DirectoryChange, IsOfTheKnownUser) {
    gUserName = u"somebody";
    EXPECT_EQ(Change(), -1);
    EXPECT_EQ(CallsOf({"GetObject"}), Lines{R"(GetObject("WinNT://ARCHIVE/somebody,user"))"});
}

TEST_F(DirectoryChange, TheOldPasswordGoesAheadOfTheNew) {
    Change();
    const practice::Call call = world.calls.Of("IADsUser.ChangePassword").at(0);
    EXPECT_EQ(call.arguments.size(), 2U);
    EXPECT_EQ(call.arguments.at(0), world.calls.MarkOf(kOld));
    EXPECT_EQ(call.arguments.at(1), world.calls.MarkOf(kNew));
}

TEST_F(DirectoryChange, AFailureWhileItsTextIsMadeLeavesItsNumber) {
    StartDiagnosing();
    Fail(0x800708C5);
    world.Fail("FormatMessageW", 317, 0);
    world.Fail("Append", 5, 3); // the line about the words that can't be had
    EXPECT_EQ(Change(), static_cast<std::int32_t>(0x800708C5));
    EXPECT_EQ(error, u"untouched");
}

TEST_F(DirectoryChange, LeavesItsLinesInOrder) {
    StartDiagnosing();
    Change();
    EXPECT_EQ(Log(), (Lines{R"(Information: -> GetObject "WinNT://ARCHIVE/user,user")",
                            "Information: -> IADsUser.ChangePassword", "Information: Password changed"}));
    EXPECT_EQ(Names(), (Lines{"Append", "GetObject", "Append", "IADsUser.ChangePassword", "Append"}));
}

TEST_F(DirectoryChange, ThatFailsGivesItsNumberAndText) {
    EXPECT_EQ(static_cast<std::uint32_t>(Change(u"\\\\ARCHIVE", u"wrong")), 0x80070056U);
    EXPECT_EQ(error, u"message 15: -2147024810, system 86");
    EXPECT_EQ(AccountAt(u"\\\\ARCHIVE").password, kOld);
    EXPECT_EQ(world.calls.Count("NetUserChangePassword"), 0U);
}

TEST_F(DirectoryChange, ThatFailsLeavesAnErrorLine) {
    StartDiagnosing();
    Change(u"\\\\ARCHIVE", u"wrong");
    EXPECT_EQ(error, u"message 12: -2147024810, IADsUser.ChangePassword, system 86");
    EXPECT_EQ(Log(), (Lines{R"(Information: -> GetObject "WinNT://ARCHIVE/user,user")",
                            "Information: -> IADsUser.ChangePassword",
                            "Error: message 12: -2147024810, IADsUser.ChangePassword, system 86"}));
}

TEST_F(DirectoryChange, ASystemCodeIsDescribedByTheServiceWhileNotDiagnosing) {
    Fail(0x80070056, u"The service says no.");
    Change();
    EXPECT_EQ(error, u"message 15: -2147024810, The service says no.");
}

TEST_F(DirectoryChange, ASystemCodeIsDescribedByTheSystemWhileDiagnosing) {
    Fail(0x80070056, u"The service says no.");
    StartDiagnosing();
    Change();
    EXPECT_EQ(error, u"message 12: -2147024810, IADsUser.ChangePassword, system 86");
}

TEST_F(DirectoryChange, ThatIsDeniedGivesTheRunTimesOwnNumber) {
    Fail(0x80070005, u"no entry");
    EXPECT_EQ(Change(), 70);
    EXPECT_EQ(error, u"message 15: 70, no entry");
}

TEST_F(DirectoryChange, AnyNumberOfTheCallIsGivenAsItIs) {
    for (const std::uint32_t result : {0x800708C5U, 0x80070532U, 0x8000500DU, 0x80004005U, 0x80020009U}) {
        Fail(result, u"described");
        EXPECT_EQ(static_cast<std::uint32_t>(Change()), result);
    }
}

TEST_F(DirectoryChange, WithoutAnObjectIsMinusOneWithTheTextOfTheBind) {
    EXPECT_EQ(Change(u"\\\\MISSING"), -1);
    EXPECT_EQ(error, u"message 15: -2147024843, system 53");
    EXPECT_EQ(world.calls.Count("IADsUser.ChangePassword"), 0U);
}

TEST_F(DirectoryChange, WithoutAnObjectLeavesTheLinesOfTheBindAlone) {
    StartDiagnosing();
    EXPECT_EQ(Change(u"\\\\MISSING"), -1);
    EXPECT_EQ(error, u"message 12: -2147024843, GetObject, system 53");
    EXPECT_EQ(Log(), (Lines{R"(Information: -> GetObject "WinNT://MISSING/user,user")",
                            "Error: message 12: -2147024843, GetObject, system 53"}));
}

TEST_F(DirectoryChange, ABindThatTellsOfThePasswordIsMinusOneAllTheSame) {
    for (const std::uint32_t result : {0x80070056U, 0x80070532U, 0x80070533U, 0x80070005U}) {
        Refuse(u"ARCHIVE", u"GetObject", result);
        EXPECT_EQ(Change(), -1) << result;
    }
}

TEST_F(DirectoryChange, NoLineThatCannotBeWrittenIsTrappedWithTheCall) {
    for (const int line : {1, 2, 3}) {
        StartDiagnosing();
        world.Fail("Append", 5, line);
        EXPECT_EQ(RaisedNumber([this] { Change(u"\\\\ARCHIVE", u"wrong"); }), 70) << line;
    }
    EXPECT_EQ(error, u"message 12: -2147024810, IADsUser.ChangePassword, system 86");
}

TEST_F(DirectoryChange, TheWordsOfTheFailureAreFoundWhileTheCallIsTrapped) {
    StartDiagnosing();
    world.Fail("FormatMessageW", 317);
    world.Fail("Append", 5, 3);
    EXPECT_EQ(static_cast<std::uint32_t>(Change(u"\\\\ARCHIVE", u"wrong")), 0x80070056U);
    EXPECT_EQ(error, u"untouched");
}

TEST_F(DirectoryChange, LogsNothingWhileNotDiagnosing) {
    OpenLog();
    Change();
    Change(u"\\\\ARCHIVE", u"wrong");
    Change(u"\\\\MISSING");
    EXPECT_EQ(Log(), Lines{});
}

TEST_F(DirectoryChange, FreesTheObjectEachTime) {
    Change();
    EXPECT_EQ(world.OutstandingHandles(), 0U);
    Change(u"\\\\ARCHIVE", u"wrong");
    EXPECT_EQ(world.OutstandingHandles(), 0U);
    EXPECT_EQ(world.calls.Count("GetObject"), 2U);
}

TEST_F(DirectoryChange, LeavesNoPasswordInTheLog) {
    StartDiagnosing();
    Change();
    Change(u"\\\\ARCHIVE", u"Wrong-Password-3");
    EXPECT_GE(Log().size(), 4U);
    for (const std::string& line : Log())
        for (const char* const secret : {"Old-Password-1", "New-Password-2", "Wrong-Password-3"})
            EXPECT_EQ(line.find(secret), std::string::npos) << line;
}

} // namespace kestrelmoor::tests
