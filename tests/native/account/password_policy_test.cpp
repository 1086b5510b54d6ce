#include "account/password_policy.h"

#include "tests/native/account/account_test.h"

namespace kestrelmoor::tests {

namespace {

class Policy : public AccountTest {
  protected:
    int Ask(const String& sServer) { return GetMaxPwdAgeAndMinLen(sServer, max_age, min_length, error); }

    std::int32_t max_age = 77;
    std::int32_t min_length = 77;
    String error = u"untouched";
};

class MinimumLength : public AccountTest {
  protected:
    /// The calls that can be part of it.
    Lines Asked() const {
        return CallsOf({"GetObject", "IADsUser.PasswordMinimumLength", "NetGetDCName", "DsGetDcNameW",
                        "NetWkstaGetInfo", "NetUserModalsGet"});
    }
};

} // namespace

TEST_F(Policy, IsTheGreatestAgeAndTheMinimumLength) {
    EXPECT_EQ(Ask(u"\\\\DC1"), 0);
    EXPECT_EQ(max_age, 7776000);
    EXPECT_EQ(min_length, 8);
    EXPECT_EQ(error, u"untouched");
    EXPECT_EQ(CallsOf({"NetUserModalsGet"}), Lines{R"(NetUserModalsGet("\\DC1"))"});
}

TEST_F(Policy, LeavesBothNumbersBehindTheCall) {
    StartDiagnosing();
    Ask(u"");
    EXPECT_EQ(Log(), (Lines{R"(Information: -> NetUserModalsGet "")", "Information: Max PWD Age = 3628800",
                            "Information: Min PWD Length = 4"}));
    EXPECT_EQ(Names(), (Lines{"Append", "NetUserModalsGet", "Append", "Append"}));
}

TEST_F(Policy, WithoutALimitHasTheAgeMinusOne) {
    StartDiagnosing();
    EXPECT_EQ(Ask(u"\\\\ARCHIVE"), 0);
    EXPECT_EQ(max_age, -1);
    EXPECT_EQ(min_length, 6);
    EXPECT_EQ(Log().at(1), "Information: Max PWD Age = -1");
}

TEST_F(Policy, OfAFailureIsATextAndNoNumber) {
    world.Fail("NetUserModalsGet", 5);
    EXPECT_EQ(Ask(u"\\\\ARCHIVE"), -1);
    EXPECT_EQ(max_age, 77);
    EXPECT_EQ(min_length, 77);
    EXPECT_EQ(error, u"message 15: 5, system 5");
}

TEST_F(Policy, OfAFailureIsAnErrorLineWhileDiagnosing) {
    StartDiagnosing();
    EXPECT_EQ(Ask(u"\\\\MISSING"), -1);
    EXPECT_EQ(error, u"message 12: 53, NetUserModalsGet, system 53");
    EXPECT_EQ(Log(), (Lines{R"(Information: -> NetUserModalsGet "\\MISSING")",
                            "Error: message 12: 53, NetUserModalsGet, system 53"}));
}

TEST_F(Policy, LeavesNoLineWhileNotDiagnosing) {
    OpenLog();
    Ask(u"");
    Ask(u"\\\\MISSING");
    EXPECT_EQ(Log(), Lines{});
}

TEST_F(MinimumLength, IsTheDirectorysWhereItCanBind) {
    InstallDirectory();
    Say(u"ARCHIVE", u"PasswordMinimumLength", 11);
    EXPECT_EQ(GetMinPwdLength(u"\\\\ARCHIVE"), 11);
    EXPECT_EQ(Asked(),
              (Lines{R"(GetObject("WinNT://ARCHIVE/user,user"))", "IADsUser.PasswordMinimumLength()"}));
}

TEST_F(MinimumLength, OfTheDirectoryStandsAlsoWhenItIs0) {
    InstallDirectory();
    Say(u"ARCHIVE", u"PasswordMinimumLength", 0);
    EXPECT_EQ(GetMinPwdLength(u"\\\\ARCHIVE"), 0);
    EXPECT_EQ(world.calls.Count("NetUserModalsGet"), 0U);
}

TEST_F(MinimumLength, OfAComputerIsItsOwnPolicys) {
    EXPECT_EQ(GetMinPwdLength(u"\\\\ARCHIVE"), 6);
    EXPECT_EQ(Asked(),
              (Lines{R"(GetObject("WinNT://ARCHIVE/user,user"))", R"(NetUserModalsGet("\\ARCHIVE"))"}));
}

TEST_F(MinimumLength, OfADomainIsAskedOfItsController) {
    EXPECT_EQ(GetMinPwdLength(u"PRACTICE"), 8);
    EXPECT_EQ(Asked(), (Lines{R"(GetObject("WinNT://PRACTICE/user,user"))", R"(NetGetDCName("PRACTICE"))",
                              R"(NetUserModalsGet("\\DC1"))"}));
}

TEST_F(MinimumLength, OfTheLocalComputerIsAskedWithoutAName) {
    EXPECT_EQ(GetMinPwdLength(u""), 4);
    EXPECT_EQ(Asked(), (Lines{"NetWkstaGetInfo()", R"(GetObject("WinNT://WORKBENCH/user,user"))",
                              R"(NetUserModalsGet(""))"}));
}

TEST_F(MinimumLength, OfADomainWithoutAControllerIsTheLocalComputers) {
    world.network.FindDomain(u"PRACTICE")->controllers.at(0).reachable = false;
    EXPECT_EQ(GetMinPwdLength(u"PRACTICE"), 4);
    EXPECT_EQ(CallsOf({"NetUserModalsGet"}), Lines{R"(NetUserModalsGet(""))"});
}

TEST_F(MinimumLength, OfATargetThatNothingAnswersIs0) {
    EXPECT_EQ(GetMinPwdLength(u"\\\\MISSING"), 0);
}

TEST_F(MinimumLength, PassesEveryFailureInSilence) {
    world.Fail("NetGetDCName", 2453);
    world.Fail("DsGetDcNameW", 1355);
    world.Fail("NetUserModalsGet", 5);
    EXPECT_EQ(GetMinPwdLength(u"PRACTICE"), 0);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(MinimumLength, ThatTheDirectoryCannotReadIsAnErrorThatIsNotTrapped) {
    InstallDirectory();
    Refuse(u"ARCHIVE", u"PasswordMinimumLength", 0x8000500D, u"no such property");
    const auto error = Raised([] { GetMinPwdLength(u"\\\\ARCHIVE"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(static_cast<std::uint32_t>(error->number()), 0x8000500DU);
    EXPECT_EQ(error->description(), u"no such property");
    EXPECT_EQ(world.OutstandingHandles(), 0U);
    EXPECT_EQ(world.calls.Count("NetUserModalsGet"), 0U);
}

} // namespace kestrelmoor::tests
