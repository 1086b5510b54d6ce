#include "account/password_policy.h"

#include "tests/native/account/account_test.h"

namespace kestrelmoor::tests {

namespace {

constexpr std::uint32_t kRefusals[] = {5, 1326, 2203};
constexpr std::uint32_t kExpiries[] = {1330, 1907, 2242};
constexpr std::uint32_t kOthers[] = {1,    2,    53,   86,   1325, 1327, 1329, 1331, 1355, 1906,
                                     1908, 1909, 2102, 2138, 2202, 2204, 2221, 2241, 2243, 0x80070005};

class AccountInfo : public AccountTest {
  protected:
    AccountInfo() {
        NameSystemCodes({5, 53, 1326, 1330, 1907});
        world.machine.network_messages = {{2203, u"network 2203"}, {2242, u"network 2242"}};
    }

    int Ask(const String& sServer = u"\\\\ARCHIVE") {
        return GetAccountInfo(u"user", sServer, age, status, flags);
    }

    void ExpectOut(std::int32_t wanted_age, PasswordStatus wanted_status, std::int32_t wanted_flags) {
        EXPECT_EQ(age, wanted_age);
        EXPECT_EQ(status, wanted_status);
        EXPECT_EQ(flags, wanted_flags);
    }

    std::int32_t age = 77;
    PasswordStatus status = 77;
    std::int32_t flags = 77;
};

} // namespace

TEST_F(AccountInfo, ASuccessTellsAgeAndFlags) {
    EXPECT_EQ(Ask(), 0);
    ExpectOut(3023700, 0, 0x201);
    EXPECT_EQ(CallsOf({"NetUserGetInfo"}), Lines{R"(NetUserGetInfo("\\ARCHIVE", "user"))"});
}

TEST_F(AccountInfo, ASuccessLeavesItsLinesAroundTheCall) {
    StartDiagnosing();
    Ask();
    EXPECT_EQ(Log(), (Lines{R"(Information: -> NetUserGetInfo "\\ARCHIVE" "user")",
                            "Information: Password status = OK"}));
    EXPECT_EQ(Names(), (Lines{"Append", "NetUserGetInfo", "Append"}));
}

TEST_F(AccountInfo, AnEmptyServerIsTheLocalComputerWithoutAName) {
    StartDiagnosing();
    EXPECT_EQ(Ask(u""), 0);
    ExpectOut(3024000, 0, 0x201);
    EXPECT_EQ(CallsOf({"NetUserGetInfo", "NetWkstaGetInfo"}), Lines{R"(NetUserGetInfo("", "user"))"});
    EXPECT_EQ(Log().at(0), R"(Information: -> NetUserGetInfo "" "user")");
}

TEST_F(AccountInfo, AnExpiredPasswordIsASuccessWhoseLineSaysOk) {
    AccountAt(u"\\\\ARCHIVE").password_expired = true;
    StartDiagnosing();
    EXPECT_EQ(Ask(), 0);
    ExpectOut(3023700, 2, 0x201);
    EXPECT_EQ(Log().back(), "Information: Password status = OK");
}

TEST_F(AccountInfo, FlagsAreGivenAsTheyStand) {
    practice::Account& account = AccountAt(u"\\\\ARCHIVE");
    account.disabled = account.locked = account.cannot_change_password = account.password_never_expires =
        true;
    Ask();
    EXPECT_EQ(flags, 0x10253);
    EXPECT_EQ(status, 0);
}

TEST_F(AccountInfo, ARefusalIsStatus4AndNoFailure) {
    for (const std::uint32_t code : kRefusals) {
        age = status = flags = 77;
        world.Fail("NetUserGetInfo", code);
        EXPECT_EQ(Ask(), 0) << code;
        ExpectOut(0, 4, 0);
    }
}

TEST_F(AccountInfo, ARefusalLeavesAnErrorLineAndThenItsStatus) {
    StartDiagnosing();
    for (const std::uint32_t code : kRefusals) {
        world.Fail("NetUserGetInfo", code);
        Ask();
    }
    EXPECT_EQ(Log(), (Lines{R"(Information: -> NetUserGetInfo "\\ARCHIVE" "user")",
                            "Error: message 12: 5, NetUserGetInfo, system 5",
                            "Information: Password status = Invalid",
                            R"(Information: -> NetUserGetInfo "\\ARCHIVE" "user")",
                            "Error: message 12: 1326, NetUserGetInfo, system 1326",
                            "Information: Password status = Invalid",
                            R"(Information: -> NetUserGetInfo "\\ARCHIVE" "user")",
                            "Error: message 12: 2203, NetUserGetInfo, network 2203",
                            "Information: Password status = Invalid"}));
}

TEST_F(AccountInfo, AnAnswerOfAnExpiredPasswordIsStatus2AndNoFailure) {
    for (const std::uint32_t code : kExpiries) {
        age = status = flags = 77;
        world.Fail("NetUserGetInfo", code);
        EXPECT_EQ(Ask(), 0) << code;
        ExpectOut(0, 2, 0);
    }
}

TEST_F(AccountInfo, AnAnswerOfAnExpiredPasswordLeavesAnErrorLineAndThenItsStatus) {
    StartDiagnosing();
    for (const std::uint32_t code : kExpiries) {
        world.Fail("NetUserGetInfo", code);
        Ask();
    }
    EXPECT_EQ(Log(), (Lines{R"(Information: -> NetUserGetInfo "\\ARCHIVE" "user")",
                            "Error: message 12: 1330, NetUserGetInfo, system 1330",
                            "Information: Password status = Expired",
                            R"(Information: -> NetUserGetInfo "\\ARCHIVE" "user")",
                            "Error: message 12: 1907, NetUserGetInfo, system 1907",
                            "Information: Password status = Expired",
                            R"(Information: -> NetUserGetInfo "\\ARCHIVE" "user")",
                            "Error: message 12: 2242, NetUserGetInfo, network 2242",
                            "Information: Password status = Expired"}));
}

TEST_F(AccountInfo, AnyOtherAnswerIsAFailureWithNothingTold) {
    for (const std::uint32_t code : kOthers) {
        age = status = flags = 77;
        world.Fail("NetUserGetInfo", code);
        EXPECT_EQ(Ask(), -1) << code;
        ExpectOut(0, 0, 0);
    }
}

TEST_F(AccountInfo, AFailureLeavesAnErrorLineAlone) {
    StartDiagnosing();
    world.Fail("NetUserGetInfo", 53);
    EXPECT_EQ(Ask(), -1);
    EXPECT_EQ(Log(), (Lines{R"(Information: -> NetUserGetInfo "\\ARCHIVE" "user")",
                            "Error: message 12: 53, NetUserGetInfo, system 53"}));
}

TEST_F(AccountInfo, NothingIsLoggedWhileNotDiagnosing) {
    OpenLog();
    Ask();
    for (const std::uint32_t code : {5U, 1330U, 53U}) {
        world.Fail("NetUserGetInfo", code);
        Ask();
    }
    EXPECT_EQ(Log(), Lines{});
}

TEST_F(AccountInfo, TheWordsOfAClassifiedAnswerAreAskedForTheLogAlone) {
    for (const std::uint32_t code : {5U, 1330U}) {
        world.Fail("NetUserGetInfo", code);
        Ask();
    }
    EXPECT_EQ(world.calls.Count("FormatMessageW"), 0U);
}

TEST_F(AccountInfo, TheTopBitOfTheAgeIsDropped) {
    const std::pair<std::uint32_t, std::int32_t> ages[] = {
        {0, 0}, {0x7FFFFFFF, 0x7FFFFFFF}, {0x80000000, 0}, {0x80000005, 5}, {0xFFFFFFFF, 0x7FFFFFFF}};
    for (const auto& [told, wanted] : ages) {
        world.SetPasswordAge(AccountAt(u"\\\\ARCHIVE"), told);
        EXPECT_EQ(Ask(), 0);
        EXPECT_EQ(age, wanted) << told;
        EXPECT_EQ(status, 0) << told;
    }
}

TEST_F(AccountInfo, ALibraryThatLacksTheCallIsAnErrorThatIsNotTrapped) {
    world.network.missing_entries = {"NetUserGetInfo"};
    EXPECT_EQ(RaisedNumber([this] { Ask(); }), 453);
}

} // namespace kestrelmoor::tests
