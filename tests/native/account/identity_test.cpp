#include "account/identity.h"

#include "shell/program_state.h"
#include "tests/native/support/program_test.h"

#include <array>

namespace kestrelmoor::tests {

namespace {

class Identity : public ProgramTest {
  protected:
    String error = u"untouched";
};

TEST_F(Identity, TheUserIsAskedOfTheWorkstation) {
    StartDiagnosing();
    EXPECT_EQ(GetCurrentUser(error), u"user");
    EXPECT_EQ(error, u"untouched");
    EXPECT_EQ(Log(), (Lines{"Information: -> NetWkstaUserGetInfo", "Information: Current User = user"}));
    EXPECT_EQ(Names(), (Lines{"Append", "NetWkstaUserGetInfo", "Append"}));
}

TEST_F(Identity, TheComputerHasItsTwoBackslashes) {
    StartDiagnosing();
    EXPECT_EQ(GetCompName(error), u"\\\\WORKBENCH");
    EXPECT_EQ(error, u"untouched");
    EXPECT_EQ(Log(),
              (Lines{"Information: -> NetWkstaGetInfo", "Information: Computer Name = \\\\WORKBENCH"}));
}

TEST_F(Identity, TheDomainOrWorkgroupHasNoPrefix) {
    StartDiagnosing();
    EXPECT_EQ(GetDomainName(error), u"WORKGROUP");
    EXPECT_EQ(error, u"untouched");
    EXPECT_EQ(Log(), (Lines{"Information: -> NetWkstaGetInfo", "Information: Domain Name = WORKGROUP"}));
}

TEST_F(Identity, AFailedQuestionIsToldAndLogged) {
    StartDiagnosing();
    world.Fail("NetWkstaUserGetInfo", 5);
    EXPECT_EQ(GetCurrentUser(error), u"");
    EXPECT_EQ(error, u"message 12: 5, NetWkstaUserGetInfo, system 5");
    world.Fail("NetWkstaGetInfo", 53);
    EXPECT_EQ(GetCompName(error), u"");
    EXPECT_EQ(error, u"message 12: 53, NetWkstaGetInfo, system 53");
    world.Fail("NetWkstaGetInfo", 2);
    EXPECT_EQ(GetDomainName(error), u"");
    EXPECT_EQ(error, u"message 12: 2, NetWkstaGetInfo, system 2");
    EXPECT_EQ(
        Log(),
        (Lines{"Information: -> NetWkstaUserGetInfo", "Error: message 12: 5, NetWkstaUserGetInfo, system 5",
               "Information: -> NetWkstaGetInfo", "Error: message 12: 53, NetWkstaGetInfo, system 53",
               "Information: -> NetWkstaGetInfo", "Error: message 12: 2, NetWkstaGetInfo, system 2"}));
}

TEST_F(Identity, NothingIsLoggedWhileNotDiagnosing) {
    OpenLog();
    GetCurrentUser(error);
    GetCompName(error);
    GetDomainName(error);
    IsDomainMember(error);
    world.Fail("NetWkstaUserGetInfo", 5);
    GetCurrentUser(error);
    EXPECT_EQ(error, u"message 15: 5, system 5");
    EXPECT_EQ(Log(), Lines{});
}

/// A computer of the domain S-1-5-21-4004-5005-6006 with a user whose account comes from there.
class DomainMembership : public Identity {
  protected:
    DomainMembership() {
        world.network.joined = true;
        world.network.Local().group = u"PRACTICE";
        world.network.user.sid = u"S-1-5-21-4004-5005-6006-1101";
    }
};

TEST_F(DomainMembership, ADomainUserOnAComputerOfTheDomainIsAMember) {
    StartDiagnosing();
    EXPECT_TRUE(IsDomainMember(error));
    EXPECT_EQ(error, u"untouched");
    EXPECT_EQ(Log(),
              (Lines{"Information: -> LsaOpenPolicy", "Information: -> LsaQueryInformationPolicy",
                     "Information: Domain Member = True", "Information: -> GetTokenInformation",
                     "Information: -> GetSidIdentifierAuthority", "Information: -> GetSidSubAuthorityCount",
                     "Information: Account Sid SubAuthority Count = 5",
                     "Information: -> AllocateAndInitializeSid", "Information: Domain Account = True"}));
}

TEST_F(DomainMembership, EachCallIsMadeOnceInOrderAndItsResultReleased) {
    IsDomainMember(error);
    EXPECT_EQ(Names(),
              (Lines{"LsaOpenPolicy", "LsaQueryInformationPolicy", "GetCurrentProcess", "OpenProcessToken",
                     "GetTokenInformation", "GetTokenInformation", "CloseHandle", "CloseHandle",
                     "GetSidIdentifierAuthority", "GetSidSubAuthorityCount", "GetSidSubAuthority",
                     "GetSidSubAuthority", "GetSidSubAuthority", "GetSidSubAuthority",
                     "AllocateAndInitializeSid", "EqualSid", "FreeSid", "LsaFreeMemory", "LsaClose"}));
    EXPECT_EQ(CallsOf({"LsaOpenPolicy", "LsaQueryInformationPolicy", "OpenProcessToken",
                       "AllocateAndInitializeSid"}),
              (Lines{R"(LsaOpenPolicy("1"))", R"(LsaQueryInformationPolicy("3"))",
                     R"(OpenProcessToken("131080"))", R"(AllocateAndInitializeSid("4"))"}));
}

TEST_F(DomainMembership, EachCallIsAnnouncedJustAheadOfIt) {
    StartDiagnosing();
    IsDomainMember(error);
    EXPECT_EQ(Names(), (Lines{"Append",
                              "LsaOpenPolicy",
                              "Append",
                              "LsaQueryInformationPolicy",
                              "Append",
                              "GetCurrentProcess",
                              "OpenProcessToken",
                              "GetTokenInformation",
                              "Append",
                              "GetTokenInformation",
                              "CloseHandle",
                              "CloseHandle",
                              "Append",
                              "GetSidIdentifierAuthority",
                              "Append",
                              "GetSidSubAuthorityCount",
                              "Append",
                              "GetSidSubAuthority",
                              "GetSidSubAuthority",
                              "GetSidSubAuthority",
                              "GetSidSubAuthority",
                              "Append",
                              "AllocateAndInitializeSid",
                              "EqualSid",
                              "FreeSid",
                              "Append",
                              "LsaFreeMemory",
                              "LsaClose"}));
}

TEST_F(DomainMembership, ALocalUserOnAComputerOfTheDomainIsNoMemberAndTheBuiltIdentifierIsFreed) {
    world.network.user.sid = u"S-1-5-21-1001-2002-3003-1000";
    StartDiagnosing();
    EXPECT_FALSE(IsDomainMember(error));
    EXPECT_EQ(error, u"untouched");
    EXPECT_EQ(Log().at(2), "Information: Domain Member = True");
    EXPECT_EQ(Log().back(), "Information: Domain Account = False");
    EXPECT_EQ(CallsOf({"EqualSid", "FreeSid"}), (Lines{"EqualSid()", "FreeSid()"}));
}

TEST_F(DomainMembership, InAWorkgroupTheTokenIsNeverOpened) {
    world.network.joined = false;
    StartDiagnosing();
    EXPECT_FALSE(IsDomainMember(error));
    EXPECT_EQ(Log(), (Lines{"Information: -> LsaOpenPolicy", "Information: -> LsaQueryInformationPolicy",
                            "Information: Domain Member = False"}));
    EXPECT_EQ(Names(), (Lines{"Append", "LsaOpenPolicy", "Append", "LsaQueryInformationPolicy", "Append",
                              "LsaFreeMemory", "LsaClose"}));
}

TEST_F(DomainMembership, APolicyThatCannotBeOpenedIsToldInTheSystemsCode) {
    StartDiagnosing();
    world.Fail("LsaOpenPolicy", 0xC0000022);
    EXPECT_FALSE(IsDomainMember(error));
    EXPECT_EQ(error, u"message 12: 5, LsaOpenPolicy, system 5");
    EXPECT_EQ(Log(),
              (Lines{"Information: -> LsaOpenPolicy", "Error: message 12: 5, LsaOpenPolicy, system 5"}));
    EXPECT_EQ(world.calls.Count("LsaClose"), 0U);
}

TEST_F(DomainMembership, APolicyThatCannotBeReadIsToldAndClosed) {
    StartDiagnosing();
    world.Fail("LsaQueryInformationPolicy", 0xC0000022);
    EXPECT_FALSE(IsDomainMember(error));
    EXPECT_EQ(error, u"message 12: 5, LsaQueryInformationPolicy, system 5");
    EXPECT_EQ(Log(), (Lines{"Information: -> LsaOpenPolicy", "Information: -> LsaQueryInformationPolicy",
                            "Error: message 12: 5, LsaQueryInformationPolicy, system 5"}));
    EXPECT_EQ(CallsOf({"LsaFreeMemory", "LsaClose", "GetCurrentProcess"}), Lines{"LsaClose()"});
}

TEST_F(DomainMembership, AnIdentifierOfExactlyEightNumbersIsRebuiltWithSeven) {
    world.network.FindDomain(u"PRACTICE")->sid = u"S-1-5-21-1-2-3-4-5-6";
    world.network.user.sid = u"S-1-5-21-1-2-3-4-5-6-1000";
    EXPECT_TRUE(IsDomainMember(error));
    EXPECT_EQ(CallsOf({"AllocateAndInitializeSid"}), Lines{R"(AllocateAndInitializeSid("7"))"});
    EXPECT_EQ(world.calls.Count("GetSidSubAuthority"), 7U);
}

TEST_F(DomainMembership, AnIdentifierOfMoreThanEightNumbersIsOfNoDomain) {
    world.network.user.sid = u"S-1-5-21-1-2-3-4-5-6-7-1000";
    StartDiagnosing();
    EXPECT_FALSE(IsDomainMember(error));
    EXPECT_EQ(Log().at(6), "Information: Account Sid SubAuthority Count = 9");
    EXPECT_EQ(Log().at(7), "Information: Domain Account = False");
    EXPECT_EQ(CallsOf({"GetSidSubAuthority", "AllocateAndInitializeSid", "EqualSid", "FreeSid"}), Lines{});
}

TEST_F(DomainMembership, ATokenThatCannotBeOpenedIsOfNoDomain) {
    StartDiagnosing();
    world.Fail("OpenProcessToken", 5);
    EXPECT_FALSE(IsDomainMember(error));
    EXPECT_EQ(error, u"untouched");
    EXPECT_EQ(Log(), (Lines{"Information: -> LsaOpenPolicy", "Information: -> LsaQueryInformationPolicy",
                            "Information: Domain Member = True", "Information: -> GetSidIdentifierAuthority",
                            "Error: message 12: 1337, GetSidIdentifierAuthority, system 1337",
                            "Information: Domain Account = False"}));
    EXPECT_EQ(CallsOf({"AllocateAndInitializeSid", "LsaFreeMemory", "LsaClose"}),
              (Lines{"LsaFreeMemory()", "LsaClose()"}));
}

class UserIdentifier : public ProgramTest {};

TEST_F(UserIdentifier, IsReadFromTheTokenInTwoCalls) {
    ASSERT_NE(GetCurrentUserSid(), nullptr);
    const auto calls = world.calls.Of("GetTokenInformation");
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[0].arguments, (StringList{u"1", u"0"}));
    EXPECT_EQ(calls[1].arguments.at(0), u"1");
    EXPECT_NE(calls[1].arguments.at(1), u"0");
    EXPECT_EQ(Names(), (Lines{"GetCurrentProcess", "OpenProcessToken", "GetTokenInformation",
                              "GetTokenInformation", "CloseHandle", "CloseHandle"}));
}

TEST_F(UserIdentifier, OutlivesTheCall) {
    const auto* const sid = static_cast<const std::uint8_t*>(GetCurrentUserSid());
    ASSERT_NE(sid, nullptr);
    // S-1-5-21-1001-2002-3003-1000: revision 1, five numbers, authority 5.
    EXPECT_EQ(std::vector<std::uint8_t>(sid, sid + 12),
              (std::vector<std::uint8_t>{1, 5, 0, 0, 0, 0, 0, 5, 21, 0, 0, 0}));
}

TEST_F(UserIdentifier, WithoutAProcessThereIsNone) {
    world.Fail("GetCurrentProcess", 6);
    EXPECT_EQ(GetCurrentUserSid(), nullptr);
    EXPECT_EQ(Names(), Lines{"GetCurrentProcess"});
}

TEST_F(UserIdentifier, ATokenThatCannotBeOpenedLeavesNoLineAndTheProcessClosed) {
    StartDiagnosing();
    world.Fail("OpenProcessToken", 5);
    EXPECT_EQ(GetCurrentUserSid(), nullptr);
    EXPECT_EQ(Log(), Lines{});
    EXPECT_EQ(Names(), (Lines{"GetCurrentProcess", "OpenProcessToken", "CloseHandle"}));
}

TEST_F(UserIdentifier, ATokenThatCannotBeReadLeavesAnErrorLineEvenWhileNotDiagnosing) {
    OpenLog();
    world.Fail("GetTokenInformation", 5, 2);
    EXPECT_EQ(GetCurrentUserSid(), nullptr);
    EXPECT_EQ(Log(), Lines{"Error: message 15: 5, system 5"});
    EXPECT_EQ(Names(),
              (Lines{"GetCurrentProcess", "OpenProcessToken", "GetTokenInformation", "GetTokenInformation",
                     "FormatMessageW", "Append", "CloseHandle", "CloseHandle"}));
}

TEST_F(UserIdentifier, ASizeThatCannotBeLearnedFailsAtTheSecondCall) {
    StartDiagnosing();
    world.machine.system_messages[122] = u"system 122";
    world.Fail("GetTokenInformation", 5, 1);
    EXPECT_EQ(GetCurrentUserSid(), nullptr);
    EXPECT_EQ(Log(), (Lines{"Information: -> GetTokenInformation",
                            "Error: message 12: 122, GetTokenInformation, system 122"}));
}

TEST_F(UserIdentifier, ATokenThatCannotBeReadIsNamedWhileDiagnosing) {
    StartDiagnosing();
    world.Fail("GetTokenInformation", 5, 2);
    EXPECT_EQ(GetCurrentUserSid(), nullptr);
    EXPECT_EQ(Log(), (Lines{"Information: -> GetTokenInformation",
                            "Error: message 12: 5, GetTokenInformation, system 5"}));
}

/// S-1-5-21-7-9.
class AccountDomainIdentifier : public ProgramTest {
  protected:
    platform::OwnedSid Build() const { return GetAccountDomainSid(mSid.data()); }

    static constexpr std::array<std::uint32_t, 5> mSid{0x00000301, 0x05000000, 21, 7, 9};
};

TEST_F(AccountDomainIdentifier, IsTheAccountsWithoutItsLastNumber) {
    const platform::OwnedSid built = Build();
    ASSERT_TRUE(built);
    const auto* const bytes = static_cast<const std::uint8_t*>(built.Get());
    EXPECT_EQ(std::vector<std::uint8_t>(bytes, bytes + 16),
              (std::vector<std::uint8_t>{1, 2, 0, 0, 0, 0, 0, 5, 21, 0, 0, 0, 7, 0, 0, 0}));
}

TEST_F(AccountDomainIdentifier, FailuresWithANameLeaveAnErrorLineEvenWhileNotDiagnosing) {
    OpenLog();
    world.Fail("GetSidIdentifierAuthority", 5);
    EXPECT_FALSE(Build());
    world.Fail("GetSidSubAuthorityCount", 53);
    EXPECT_FALSE(Build());
    world.Fail("AllocateAndInitializeSid", 1337);
    EXPECT_FALSE(Build());
    EXPECT_EQ(Log(), (Lines{"Error: message 15: 5, system 5", "Error: message 15: 53, system 53",
                            "Error: message 15: 1337, system 1337"}));
}

TEST_F(AccountDomainIdentifier, AFailureEndsItAtItsCall) {
    StartDiagnosing();
    world.Fail("GetSidIdentifierAuthority", 5);
    EXPECT_FALSE(Build());
    EXPECT_EQ(Log(), (Lines{"Information: -> GetSidIdentifierAuthority",
                            "Error: message 12: 5, GetSidIdentifierAuthority, system 5"}));
    EXPECT_EQ(world.calls.Count("GetSidSubAuthorityCount"), 0U);
    world.Fail("GetSidSubAuthorityCount", 5);
    EXPECT_FALSE(Build());
    EXPECT_EQ(Log().back(), "Error: message 12: 5, GetSidSubAuthorityCount, system 5");
    EXPECT_EQ(world.calls.Count("GetSidSubAuthority"), 0U);
}

TEST_F(AccountDomainIdentifier, ANumberThatCannotBeReadLeavesNoLine) {
    StartDiagnosing();
    world.Fail("GetSidSubAuthority", 5, 2);
    EXPECT_FALSE(Build());
    EXPECT_EQ(Log(),
              (Lines{"Information: -> GetSidIdentifierAuthority", "Information: -> GetSidSubAuthorityCount",
                     "Information: Account Sid SubAuthority Count = 3"}));
    EXPECT_EQ(world.calls.Count("GetSidSubAuthority"), 2U);
    EXPECT_EQ(world.calls.Count("AllocateAndInitializeSid"), 0U);
}

} // namespace

} // namespace kestrelmoor::tests
