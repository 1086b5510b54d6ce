#include "account/domain_controller.h"

#include "tests/native/support/program_test.h"

namespace kestrelmoor::tests {

namespace {

class DomainController : public ProgramTest {
  protected:
    String error = u"untouched";
};

TEST_F(DomainController, ATargetWithTwoBackslashesCausesNoCall) {
    StartDiagnosing();
    EXPECT_EQ(ResolveServerName(u"\\\\ARCHIVE", error), u"\\\\ARCHIVE");
    EXPECT_EQ(ResolveServerName(u"\\\\archive.practice.test", error), u"\\\\archive.practice.test");
    EXPECT_EQ(error, u"untouched");
    EXPECT_EQ(Names(), Lines{});
}

TEST_F(DomainController, AnyOtherTargetIsADomain) {
    EXPECT_EQ(ResolveServerName(u"PRACTICE", error), u"\\\\DC1");
    EXPECT_EQ(CallsOf({"NetGetDCName"}), Lines{R"(NetGetDCName("PRACTICE"))"});
}

TEST_F(DomainController, ATargetWithOneBackslashIsADomain) {
    EXPECT_EQ(ResolveServerName(u"\\ARCHIVE", error), u"");
    EXPECT_EQ(CallsOf({"NetGetDCName"}), Lines{R"(NetGetDCName("\ARCHIVE"))"});
}

TEST_F(DomainController, AShortNameIsAnsweredByTheFirstInterface) {
    StartDiagnosing();
    EXPECT_EQ(GetPrimaryDCName(u"PRACTICE", error), u"\\\\DC1");
    EXPECT_EQ(error, u"untouched");
    EXPECT_EQ(Log(),
              (Lines{"Information: -> NetGetDCName \"PRACTICE\"", "Information: Primary DC Name = \\\\DC1"}));
    EXPECT_EQ(Names(), (Lines{"Append", "NetGetDCName", "Append"}));
}

TEST_F(DomainController, ADottedNameIsCutAtItsFirstDotForTheFirstInterface) {
    StartDiagnosing();
    EXPECT_EQ(GetPrimaryDCName(u"practice.test", error), u"\\\\DC1");
    EXPECT_EQ(Log(),
              (Lines{"Information: -> NetGetDCName \"practice\"", "Information: Primary DC Name = \\\\DC1"}));
    EXPECT_EQ(CallsOf({"NetGetDCName"}), Lines{R"(NetGetDCName("practice"))"});
}

TEST_F(DomainController, ANameThatBeginsWithADotHasAnEmptyShortName) {
    StartDiagnosing();
    EXPECT_EQ(GetPrimaryDCName(u".test", error), u"");
    EXPECT_EQ(Log().at(0), "Information: -> NetGetDCName \"\"");
    EXPECT_EQ(CallsOf({"NetGetDCName"}), Lines{R"(NetGetDCName(""))"});
}

TEST_F(DomainController, WhenNoneIsFoundTheSecondInterfaceIsAskedForTheWholeName) {
    StartDiagnosing();
    world.Fail("NetGetDCName", 2453);
    EXPECT_EQ(GetPrimaryDCName(u"practice.test", error), u"\\\\dc1.practice.test");
    EXPECT_EQ(Log(), (Lines{"Information: -> NetGetDCName \"practice\"",
                            "Error: message 12: 2453, NetGetDCName, network 2453",
                            "Information: -> DsGetDcNameW \"practice.test\"",
                            "Information: Primary DC Name = \\\\dc1.practice.test"}));
    EXPECT_EQ(CallsOf({"NetGetDCName", "DsGetDcNameW"}),
              (Lines{R"(NetGetDCName("practice"))", R"(DsGetDcNameW("practice.test", "1073741952"))"}));
}

TEST_F(DomainController, ASuccessDoesNotClearTheTextOfTheFailureBeforeIt) {
    world.Fail("NetGetDCName", 2453);
    EXPECT_NE(GetPrimaryDCName(u"PRACTICE", error), u"");
    EXPECT_EQ(error, u"message 15: 2453, network 2453");
}

TEST_F(DomainController, AnyOtherFailureDoesNotTryTheSecondInterface) {
    StartDiagnosing();
    for (const std::uint32_t code : {5U, 53U, 2221U, 2452U, 2454U}) {
        world.Fail("NetGetDCName", code);
        EXPECT_EQ(GetPrimaryDCName(u"PRACTICE", error), u"") << code;
    }
    EXPECT_EQ(world.calls.Count("DsGetDcNameW"), 0U);
}

TEST_F(DomainController, AFailureLeavesItsTextAndOneErrorLine) {
    StartDiagnosing();
    world.Fail("NetGetDCName", 53);
    EXPECT_EQ(GetPrimaryDCName(u"PRACTICE", error), u"");
    EXPECT_EQ(error, u"message 12: 53, NetGetDCName, system 53");
    EXPECT_EQ(Log(), (Lines{"Information: -> NetGetDCName \"PRACTICE\"",
                            "Error: message 12: 53, NetGetDCName, system 53"}));
}

TEST_F(DomainController, ASecondInterfaceThatIsNotThereKeepsTheFirstTextWithoutAFurtherLine) {
    StartDiagnosing();
    world.network.missing_entries.insert("DsGetDcNameW");
    world.Fail("NetGetDCName", 2453);
    EXPECT_EQ(GetPrimaryDCName(u"PRACTICE", error), u"");
    EXPECT_EQ(error, u"message 12: 2453, NetGetDCName, network 2453");
    EXPECT_EQ(Log(), (Lines{"Information: -> NetGetDCName \"PRACTICE\"",
                            "Error: message 12: 2453, NetGetDCName, network 2453",
                            "Information: -> DsGetDcNameW \"PRACTICE\""}));
}

TEST_F(DomainController, AFailureOfTheSecondInterfaceReplacesTheText) {
    StartDiagnosing();
    world.Fail("NetGetDCName", 2453);
    world.Fail("DsGetDcNameW", 5);
    EXPECT_EQ(GetPrimaryDCName(u"PRACTICE", error), u"");
    EXPECT_EQ(error, u"message 12: 5, DsGetDcNameW, system 5");
    EXPECT_EQ(Log(), (Lines{"Information: -> NetGetDCName \"PRACTICE\"",
                            "Error: message 12: 2453, NetGetDCName, network 2453",
                            "Information: -> DsGetDcNameW \"PRACTICE\"",
                            "Error: message 12: 5, DsGetDcNameW, system 5"}));
}

TEST_F(DomainController, TwoLookUpsInARowBothGoToThePlatform) {
    EXPECT_EQ(GetPrimaryDCName(u"PRACTICE", error), u"\\\\DC1");
    EXPECT_EQ(GetPrimaryDCName(u"PRACTICE", error), u"\\\\DC1");
    EXPECT_EQ(world.calls.Count("NetGetDCName"), 2U);
}

TEST_F(DomainController, NothingIsLoggedWhileNotDiagnosing) {
    OpenLog();
    world.Fail("NetGetDCName", 2453);
    world.Fail("DsGetDcNameW", 5);
    GetPrimaryDCName(u"PRACTICE", error);
    EXPECT_EQ(Log(), Lines{});
}

} // namespace

} // namespace kestrelmoor::tests
