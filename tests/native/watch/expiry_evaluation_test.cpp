#include "watch/expiry_evaluation.h"

#include "shell/program_state.h"
#include "tests/native/account/account_test.h"

namespace kestrelmoor::tests {

namespace {

/// An evaluation of three servers and, where the test wants it, of the local computer. All passwords last.
class Evaluation : public AccountTest {
  protected:
    Evaluation() {
        world.network.computers.push_back({u"ANNEX", u"WORKGROUP", true, {}});
        world.network.computers.back().store.accounts.emplace_back().name = u"user";
        PolicyAt(u"").max_age = PolicyAt(u"\\\\DC1").max_age = practice::kForever;
        Configure({u"\\\\ARCHIVE", u"PRACTICE", u"\\\\ANNEX"}, false);
    }

    static void Configure(const StringList& servers, bool local) {
        gServers = Array<String>(1, servers);
        gServerCount = static_cast<std::int16_t>(servers.size());
        gActiveBits = Array<std::uint8_t>(1, {0xFF, 0xFF});
        gSyncLocal = local;
    }

    PasswordStatus Evaluate() { return EvaluateTargets(report, title, status); }

    void Expire(StringView server) { AccountAt(server).password_expired = true; }

    /// Refuses the question about the target that comes as the `nth`.
    void RefuseNth(int nth) { world.Fail("NetUserGetInfo", 5, nth); }

    /// Lets a password have five days left.
    void LetExpire(StringView server) {
        world.SetPasswordAge(AccountAt(server), 86400);
        PolicyAt(server).max_age = 6 * 86400;
    }

    Lines Asked() const { return CallsOf({"GetObject", "NetUserGetInfo"}); }

    void ExpectStatus(std::int32_t first, const std::vector<PasswordStatus>& wanted) {
        EXPECT_EQ(status.LowerBound(), first);
        EXPECT_EQ(status.Elements(), wanted);
    }

    String title = u"untouched";
    Array<PasswordStatus> status;
};

} // namespace

TEST_F(Evaluation, WithoutAnyTargetIs0AtOnce) {
    Configure({}, false);
    EXPECT_EQ(Evaluate(), 0);
    EXPECT_EQ(Names(), Lines{});
    EXPECT_EQ(title, u"untouched");
}

TEST_F(Evaluation, AsksTheLocalComputerFirstAndTheServersInTheirOrder) {
    Configure({u"\\\\ARCHIVE", u"PRACTICE", u"\\\\ANNEX"}, true);
    EXPECT_EQ(Evaluate(), 0);
    EXPECT_EQ(Asked(),
              (Lines{R"(GetObject("WinNT://WORKBENCH/user,user"))", R"(NetUserGetInfo("", "user"))",
                     R"(GetObject("WinNT://ARCHIVE/user,user"))", R"(NetUserGetInfo("\\ARCHIVE", "user"))",
                     R"(GetObject("WinNT://PRACTICE/user,user"))", R"(NetUserGetInfo("\\DC1", "user"))",
                     R"(GetObject("WinNT://ANNEX/user,user"))", R"(NetUserGetInfo("\\ANNEX", "user"))"}));
    ExpectStatus(0, {0, 0, 0, 0});
}

TEST_F(Evaluation, WithoutTheLocalComputerBeginsAtServer1) {
    Configure({u"PRACTICE"}, false);
    EXPECT_EQ(Evaluate(), 0);
    EXPECT_EQ(Asked(),
              (Lines{R"(GetObject("WinNT://PRACTICE/user,user"))", R"(NetUserGetInfo("\\DC1", "user"))"}));
    ExpectStatus(1, {0});
}

TEST_F(Evaluation, OfTheLocalComputerAloneHasOneStatus) {
    Configure({}, true);
    Expire(u"");
    EXPECT_EQ(Evaluate(), 2);
    ExpectStatus(0, {2});
    EXPECT_EQ(Report(), "message 3: phrase 7\r\n");
}

TEST_F(Evaluation, AsksNoNetworkWhereTheDirectoryAnswers) {
    InstallDirectory();
    Configure({u"\\\\ARCHIVE", u"\\\\MISSING"}, false);
    Say(u"ARCHIVE", u"UserFlags", 0x10200);
    EXPECT_EQ(Evaluate(), 0);
    EXPECT_EQ(Asked(),
              (Lines{R"(GetObject("WinNT://ARCHIVE/user,user"))", R"(GetObject("WinNT://MISSING/user,user"))",
                     R"(NetUserGetInfo("\\MISSING", "user"))"}));
}

TEST_F(Evaluation, AsksNoNetworkWhereABindIsRefusedForTheAccountsSake) {
    InstallDirectory();
    Configure({u"\\\\ARCHIVE"}, false);
    for (const std::uint32_t result : {0x8007052FU, 0x80070530U, 0x80070531U, 0x80070533U, 0x80070557U,
                                       0x80070564U, 0x80070569U, 0x80070701U, 0x80070775U, 0x80070532U,
                                       0x80070773U, 0x800708C2U, 0x80070056U, 0x8007052EU, 0x80070005U}) {
        Refuse(u"ARCHIVE", u"GetObject", result);
        Evaluate();
        EXPECT_EQ(CallsOf({"NetUserGetInfo", "NetUserModalsGet"}), Lines{}) << std::hex << result;
    }
}

TEST_F(Evaluation, OfARestrictedAccountHasALineAndGoesOn) {
    InstallDirectory();
    Refuse(u"ARCHIVE", u"GetObject", 0x80070533);
    Refuse(u"PRACTICE", u"GetObject", 0x80070056);
    Say(u"ANNEX", u"UserFlags", 0x10200);
    EXPECT_EQ(Evaluate(), 4);
    EXPECT_EQ(Report(), "message 21: phrase 8: \\\\ARCHIVE\r\nmessage 19: phrase 9: PRACTICE\r\n");
    ExpectStatus(1, {0, 4, 0});
}

TEST_F(Evaluation, OfARestrictedAccountAloneIs0WithoutATitle) {
    InstallDirectory();
    Configure({u"\\\\ARCHIVE"}, false);
    Refuse(u"ARCHIVE", u"GetObject", 0x80070533);
    EXPECT_EQ(Evaluate(), 0);
    EXPECT_EQ(title, u"untouched");
}

TEST_F(Evaluation, SkipsAServerThatIsNotActive) {
    gActiveBits[1] = 0b101;
    Expire(u"\\\\DC1");
    EXPECT_EQ(Evaluate(), 0);
    EXPECT_EQ(CallsOf({"GetObject"}), (Lines{R"(GetObject("WinNT://ARCHIVE/user,user"))",
                                             R"(GetObject("WinNT://ANNEX/user,user"))"}));
    ExpectStatus(1, {0, 0, 0});
}

TEST_F(Evaluation, TheBitOfServer9IsTheFirstOfTheSecondByte) {
    Configure(StringList(9, u"\\\\ARCHIVE"), false);
    gActiveBits[1] = 0;
    gActiveBits[2] = 1;
    Expire(u"\\\\ARCHIVE");
    EXPECT_EQ(Evaluate(), 2);
    ExpectStatus(1, {0, 0, 0, 0, 0, 0, 0, 0, 2});
}

TEST_F(Evaluation, SkipsAnActiveServerWithAnEmptyName) {
    Configure({u"", u"\\\\ARCHIVE"}, false);
    Expire(u"");
    EXPECT_EQ(Evaluate(), 0);
    EXPECT_EQ(CallsOf({"GetObject"}), Lines{R"(GetObject("WinNT://ARCHIVE/user,user"))"});
    ExpectStatus(1, {0, 0});
}

TEST_F(Evaluation, JoinsAllResults) {
    Configure({u"\\\\ARCHIVE", u"PRACTICE", u"\\\\ANNEX"}, true);
    LetExpire(u"");
    RefuseNth(2);
    Expire(u"\\\\ANNEX");
    EXPECT_EQ(Evaluate(), 7);
    ExpectStatus(0, {1, 4, 0, 2});
    EXPECT_EQ(Report(), "message 4: phrase 7, 5, 00, noun 5 of 5, noun 6 of 0\r\n"
                        "message 19: phrase 8: \\\\ARCHIVE\r\n"
                        "message 3: phrase 8: \\\\ANNEX\r\n");
}

TEST_F(Evaluation, EqualResultsAreJoinedAndNotAdded) {
    RefuseNth(1);
    RefuseNth(2);
    RefuseNth(3);
    EXPECT_EQ(Evaluate(), 4);
    ExpectStatus(1, {4, 4, 4});
}

TEST_F(Evaluation, TheTitleIsMessage13WhereAllAreExpiring) {
    LetExpire(u"\\\\ARCHIVE");
    LetExpire(u"\\\\ANNEX");
    EXPECT_EQ(Evaluate(), 1);
    EXPECT_EQ(title, u"message 13");
}

TEST_F(Evaluation, TheTitleIsMessage14WhereAnyIsExpired) {
    Expire(u"\\\\ARCHIVE");
    EXPECT_EQ(Evaluate(), 2);
    EXPECT_EQ(title, u"message 14");
    title = u"untouched";
    LetExpire(u"\\\\ANNEX");
    EXPECT_EQ(Evaluate(), 3);
    EXPECT_EQ(title, u"message 14");
    title = u"untouched";
    RefuseNth(2);
    EXPECT_EQ(Evaluate(), 7);
    EXPECT_EQ(title, u"message 14");
    title = u"untouched";
    AccountAt(u"\\\\ANNEX").disabled = true;
    RefuseNth(2);
    EXPECT_EQ(Evaluate(), 6);
    EXPECT_EQ(title, u"message 14");
}

TEST_F(Evaluation, TheTitleIsMessage20WhereAnyIsInvalidAndNoneExpired) {
    RefuseNth(1);
    EXPECT_EQ(Evaluate(), 4);
    EXPECT_EQ(title, u"message 20");
    title = u"untouched";
    LetExpire(u"\\\\ANNEX");
    RefuseNth(1);
    EXPECT_EQ(Evaluate(), 5);
    EXPECT_EQ(title, u"message 20");
}

TEST_F(Evaluation, WithNothingToSayLeavesTheTitle) {
    EXPECT_EQ(Evaluate(), 0);
    EXPECT_EQ(title, u"untouched");
    EXPECT_EQ(Report(), "");
}

TEST_F(Evaluation, WhatCannotBeLearnedCountsAs0AndTheNextIsAsked) {
    world.Fail("NetUserGetInfo", 53);
    Expire(u"\\\\ANNEX");
    EXPECT_EQ(Evaluate(), 2);
    ExpectStatus(1, {0, 0, 2});
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(Evaluation, AnErrorIsNotTrappedAndNoFurtherTargetIsAsked) {
    InstallDirectory();
    Refuse(u"ARCHIVE", u"UserFlags", 0x8000500D);
    EXPECT_EQ(static_cast<std::uint32_t>(RaisedNumber([this] { Evaluate(); })), 0x8000500DU);
    EXPECT_EQ(Asked(), Lines{R"(GetObject("WinNT://ARCHIVE/user,user"))"});
}

TEST_F(Evaluation, ABitBeyondTheStoredOnesIsAnErrorThatIsNotTrapped) {
    gActiveBits = {};
    EXPECT_EQ(RaisedNumber([this] { Evaluate(); }), 9);
}

} // namespace kestrelmoor::tests
