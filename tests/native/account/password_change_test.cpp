#include "account/password_change.h"

#include "tests/native/support/program_test.h"

namespace kestrelmoor::tests {

namespace {

constexpr char16_t kOld[] = u"Old-Password-1";
constexpr char16_t kNew[] = u"New-Password-2";

class PasswordChange : public ProgramTest {
  protected:
    /// 0 for success, as the operation has it.
    int Change(const String& sTarget) { return ChangePassword(kOld, kNew, sTarget, error); }

    String PasswordAt(const char16_t* sServer) {
        return world.network.StoreAt(sServer)->Find(u"user")->password;
    }

    Lines Servers() const {
        Lines servers;
        for (const practice::Call& call : world.calls.Of("NetUserChangePassword"))
            servers.push_back(ToUtf8(call.arguments.at(0)));
        return servers;
    }

    String error = u"untouched";
};

TEST_F(PasswordChange, AnEmptyTargetIsTheLocalComputerByItsName) {
    EXPECT_EQ(Change(u""), 0);
    EXPECT_EQ(Servers(), Lines{"\\\\WORKBENCH"});
    EXPECT_EQ(PasswordAt(u"\\\\WORKBENCH"), kNew);
    EXPECT_EQ(PasswordAt(u"\\\\ARCHIVE"), kOld);
    EXPECT_EQ(error, u"untouched");
}

TEST_F(PasswordChange, AComputerIsReachedUnchangedWithoutALookUp) {
    EXPECT_EQ(Change(u"\\\\ARCHIVE"), 0);
    EXPECT_EQ(Servers(), Lines{"\\\\ARCHIVE"});
    EXPECT_EQ(PasswordAt(u"\\\\ARCHIVE"), kNew);
    EXPECT_EQ(CallsOf({"NetGetDCName", "DsGetDcNameW", "NetWkstaGetInfo"}), Lines{});
}

TEST_F(PasswordChange, ADomainIsReachedThroughItsController) {
    EXPECT_EQ(Change(u"PRACTICE"), 0);
    EXPECT_EQ(Servers(), Lines{"\\\\DC1"});
    EXPECT_EQ(PasswordAt(u"\\\\DC1"), kNew);
}

TEST_F(PasswordChange, ADottedDomainIsReachedThroughTheControllerThatIsFound) {
    world.Fail("NetGetDCName", 2453);
    EXPECT_EQ(Change(u"practice.test"), 0);
    EXPECT_EQ(Servers(), Lines{"\\\\dc1.practice.test"});
    EXPECT_EQ(error, u"untouched");
}

TEST_F(PasswordChange, TheCallsAreMadeInOrder) {
    Change(u"\\\\ARCHIVE");
    EXPECT_EQ(Names(), (Lines{"GetCurrentProcess", "OpenProcessToken", "LookupPrivilegeValueW",
                              "AdjustTokenPrivileges", "CloseHandle", "NetUserChangePassword"}));
    EXPECT_EQ(CallsOf({"OpenProcessToken", "LookupPrivilegeValueW", "AdjustTokenPrivileges"}),
              (Lines{R"(OpenProcessToken("40"))", R"(LookupPrivilegeValueW("SeChangeNotifyPrivilege"))",
                     R"(AdjustTokenPrivileges("23", "2"))"}));
}

TEST_F(PasswordChange, ThePrivilegeIsSetOnEveryCallAndNeverTakenBack) {
    Change(u"\\\\ARCHIVE");
    Change(u"PRACTICE");
    EXPECT_EQ(CallsOf({"AdjustTokenPrivileges"}),
              (Lines{R"(AdjustTokenPrivileges("23", "2"))", R"(AdjustTokenPrivileges("23", "2"))"}));
}

TEST_F(PasswordChange, TheOldPasswordGoesAheadOfTheNew) {
    Change(u"\\\\ARCHIVE");
    const practice::Call call = world.calls.Of("NetUserChangePassword").at(0);
    EXPECT_EQ(call.arguments.at(1), world.calls.MarkOf(kOld));
    EXPECT_EQ(call.arguments.at(2), world.calls.MarkOf(kNew));
    EXPECT_NE(call.arguments.at(1), call.arguments.at(2));
}

TEST_F(PasswordChange, ASuccessLeavesItsLinesAndNoPassword) {
    StartDiagnosing();
    Change(u"PRACTICE");
    EXPECT_EQ(Log(),
              (Lines{"Information: -> NetGetDCName \"PRACTICE\"", "Information: Primary DC Name = \\\\DC1",
                     "Information: -> OpenProcessToken",
                     "Information: -> LookupPrivilegeValue \"SeChangeNotifyPrivilege\"",
                     "Information: -> AdjustTokenPrivileges",
                     "Information: -> NetUserChangePassword \"\\\\DC1\"", "Information: Password changed"}));
    EXPECT_EQ(Names(),
              (Lines{"Append", "NetGetDCName", "Append", "Append", "GetCurrentProcess", "OpenProcessToken",
                     "Append", "LookupPrivilegeValueW", "Append", "AdjustTokenPrivileges", "CloseHandle",
                     "Append", "NetUserChangePassword", "Append"}));
}

TEST_F(PasswordChange, TheLocalComputersNameIsLoggedAheadOfTheChange) {
    StartDiagnosing();
    Change(u"");
    EXPECT_EQ(Log().at(0), "Information: -> NetWkstaGetInfo");
    EXPECT_EQ(Log().at(1), "Information: Computer Name = \\\\WORKBENCH");
    EXPECT_EQ(Log().at(5), "Information: -> NetUserChangePassword \"\\\\WORKBENCH\"");
}

TEST_F(PasswordChange, AWrongOldPasswordIsToldAndNothingChanges) {
    StartDiagnosing();
    EXPECT_EQ(ChangePassword(u"wrong", kNew, u"\\\\ARCHIVE", error), -1);
    EXPECT_EQ(error, u"message 12: 86, NetUserChangePassword, system 86");
    EXPECT_EQ(Log().back(), "Error: message 12: 86, NetUserChangePassword, system 86");
    EXPECT_EQ(PasswordAt(u"\\\\ARCHIVE"), kOld);
}

TEST_F(PasswordChange, EveryFailureIsTreatedAlike) {
    for (const std::uint32_t code : {5U, 53U, 86U, 2221U, 2245U}) {
        world.Fail("NetUserChangePassword", code);
        error = u"untouched";
        EXPECT_EQ(Change(u"\\\\ARCHIVE"), -1) << code;
        EXPECT_NE(error, u"untouched") << code;
    }
    EXPECT_EQ(Servers(), Lines(5, "\\\\ARCHIVE"));
}

TEST_F(PasswordChange, APasswordThatThePolicyRefusesIsToldInTheNetworksWords) {
    EXPECT_EQ(ChangePassword(kOld, u"short", u"\\\\ARCHIVE", error), -1);
    EXPECT_EQ(error, u"message 15: 2245, network 2245");
}

TEST_F(PasswordChange, AServerThatIsNotThereIsToldAfterOneAttempt) {
    EXPECT_EQ(Change(u"\\\\MISSING"), -1);
    EXPECT_EQ(error, u"message 15: 53, system 53");
    EXPECT_EQ(Servers(), Lines{"\\\\MISSING"});
}

TEST_F(PasswordChange, EmptyPasswordsGoToTheServerAsTexts) {
    world.network.StoreAt(u"\\\\WORKBENCH")->Find(u"user")->password.clear();
    world.network.StoreAt(u"\\\\WORKBENCH")->policy = {};
    EXPECT_EQ(ChangePassword(String(), u"", u"", error), 0);
    EXPECT_EQ(ChangePassword(String(), kNew, u"", error), 0);
    EXPECT_EQ(PasswordAt(u"\\\\WORKBENCH"), kNew);
}

TEST_F(PasswordChange, AControllerThatIsNotFoundEndsItAheadOfAnyOtherCall) {
    StartDiagnosing();
    world.Fail("NetGetDCName", 53);
    EXPECT_EQ(Change(u"PRACTICE"), -1);
    EXPECT_EQ(error, u"message 12: 53, NetGetDCName, system 53");
    EXPECT_EQ(Log(), (Lines{"Information: -> NetGetDCName \"PRACTICE\"",
                            "Error: message 12: 53, NetGetDCName, system 53"}));
    EXPECT_EQ(CallsOf({"GetCurrentProcess", "OpenProcessToken", "NetUserChangePassword"}), Lines{});
}

TEST_F(PasswordChange, AComputerNameThatIsNotFoundEndsItAheadOfAnyOtherCall) {
    world.Fail("NetWkstaGetInfo", 5);
    EXPECT_EQ(Change(u""), -1);
    EXPECT_EQ(error, u"message 15: 5, system 5");
    EXPECT_EQ(CallsOf({"GetCurrentProcess", "OpenProcessToken", "NetUserChangePassword"}), Lines{});
}

TEST_F(PasswordChange, AFailingPrivilegeLeavesAnErrorLineAndTheChangeRuns) {
    StartDiagnosing();
    world.Fail("OpenProcessToken", 5);
    EXPECT_EQ(Change(u"\\\\ARCHIVE"), 0);
    EXPECT_EQ(error, u"untouched");
    EXPECT_EQ(
        Log(),
        (Lines{"Information: -> OpenProcessToken", "Error: message 12: 5, OpenProcessToken, system 5",
               "Information: -> NetUserChangePassword \"\\\\ARCHIVE\"", "Information: Password changed"}));
}

TEST_F(PasswordChange, NothingIsLoggedWhileNotDiagnosing) {
    OpenLog();
    world.Fail("OpenProcessToken", 5);
    EXPECT_EQ(Change(u"PRACTICE"), 0);
    EXPECT_EQ(ChangePassword(u"wrong", kNew, u"\\\\ARCHIVE", error), -1);
    EXPECT_EQ(Log(), Lines{});
}

class Privilege : public ProgramTest {
  protected:
    int Set(bool bEnable = true) { return SetPrivilege(u"SeChangeNotifyPrivilege", bEnable, error); }

    String error = u"untouched";
};

TEST_F(Privilege, IsTurnedOnAndOff) {
    EXPECT_EQ(Set(true), 0);
    EXPECT_EQ(Set(false), 0);
    EXPECT_EQ(CallsOf({"AdjustTokenPrivileges"}),
              (Lines{R"(AdjustTokenPrivileges("23", "2"))", R"(AdjustTokenPrivileges("23", "0"))"}));
    EXPECT_EQ(error, u"untouched");
}

TEST_F(Privilege, AnUnopenedTokenIsAFailureWithNothingToClose) {
    StartDiagnosing();
    world.Fail("OpenProcessToken", 5);
    EXPECT_EQ(Set(), -1);
    EXPECT_EQ(error, u"message 12: 5, OpenProcessToken, system 5");
    EXPECT_EQ(Log(), (Lines{"Information: -> OpenProcessToken",
                            "Error: message 12: 5, OpenProcessToken, system 5"}));
    EXPECT_EQ(CallsOf({"LookupPrivilegeValueW", "CloseHandle"}), Lines{});
}

TEST_F(Privilege, AnUnknownNameIsAFailureAndTheTokenIsClosedAheadOfItsLine) {
    StartDiagnosing();
    world.Fail("LookupPrivilegeValueW", 53);
    EXPECT_EQ(Set(), -1);
    EXPECT_EQ(error, u"message 12: 53, LookupPrivilegeValue, system 53");
    EXPECT_EQ(Log(), (Lines{"Information: -> OpenProcessToken",
                            "Information: -> LookupPrivilegeValue \"SeChangeNotifyPrivilege\"",
                            "Error: message 12: 53, LookupPrivilegeValue, system 53"}));
    EXPECT_EQ(Names(), (Lines{"Append", "GetCurrentProcess", "OpenProcessToken", "Append",
                              "LookupPrivilegeValueW", "FormatMessageW", "CloseHandle", "Append"}));
}

TEST_F(Privilege, OneThatIsNotAssignedIsAFailureAlthoughTheCallAnswersYes) {
    StartDiagnosing();
    world.machine.privileges_assigned = false;
    EXPECT_EQ(Set(), -1);
    EXPECT_EQ(error, u"message 12: 1300, AdjustTokenPrivileges, system 1300");
    EXPECT_EQ(Log(), (Lines{"Information: -> OpenProcessToken",
                            "Information: -> LookupPrivilegeValue \"SeChangeNotifyPrivilege\"",
                            "Information: -> AdjustTokenPrivileges",
                            "Error: message 12: 1300, AdjustTokenPrivileges, system 1300"}));
    EXPECT_EQ(world.calls.Count("CloseHandle"), 1U);
}

TEST_F(Privilege, AFailedAdjustingIsAFailure) {
    world.Fail("AdjustTokenPrivileges", 5);
    EXPECT_EQ(Set(), -1);
    EXPECT_EQ(error, u"message 15: 5, system 5");
}

} // namespace

} // namespace kestrelmoor::tests
