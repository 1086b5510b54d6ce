#include "account/mAD.h"

#include "shell/program_state.h"
#include "tests/native/account/account_test.h"

namespace kestrelmoor::tests {

namespace {

class DirectoryBind : public AccountTest {
  protected:
    DirectoryBind() { InstallDirectory(); }

    /// Whether an object was bound.
    bool Bind(const String& sTarget) {
        const platform::OwnedDirectoryObject object = ADInitUser(sTarget, u"user", number, error);
        EXPECT_EQ(world.OutstandingHandles(), object ? 1U + Logs() : Logs());
        return static_cast<bool>(object);
    }

    std::uint32_t Number() const { return static_cast<std::uint32_t>(number); }
    Lines Paths() const { return CallsOf({"GetObject"}); }

    std::int32_t number = 77;
    String error = u"untouched";

  private:
    std::size_t Logs() const { return world.handles.Outstanding(practice::HandleKind::AppendFile); }
};

class DirectoryLength : public AccountTest {
  protected:
    DirectoryLength() { InstallDirectory(); }

    int Ask(const String& sTarget = u"\\\\ARCHIVE") { return ADGetMinPwdLength(sTarget, length); }

    std::int32_t length = 77;
};

class DirectoryError : public AccountTest {
  protected:
    static std::string Format(std::uint32_t number) {
        return ToUtf8(
            FormatADError({static_cast<std::int32_t>(number), u"somewhere", u"described"}, u"Call"));
    }
};

} // namespace

TEST_F(DirectoryBind, GivesTheObjectWithNumber0AndNoText) {
    EXPECT_TRUE(Bind(u"\\\\ARCHIVE"));
    EXPECT_EQ(number, 0);
    EXPECT_EQ(error, u"untouched");
}

TEST_F(DirectoryBind, OfAnEmptyTargetIsTheLocalComputersNameWithoutBackslashes) {
    StartDiagnosing();
    EXPECT_TRUE(Bind(u""));
    EXPECT_EQ(Paths(), Lines{R"(GetObject("WinNT://WORKBENCH/user,user"))"});
    EXPECT_EQ(Log(), (Lines{"Information: -> NetWkstaGetInfo", R"(Information: Computer Name = \\WORKBENCH)",
                            R"(Information: -> GetObject "WinNT://WORKBENCH/user,user")"}));
}

TEST_F(DirectoryBind, OfAComputerIsItsNameWithoutBackslashes) {
    Bind(u"\\\\ARCHIVE");
    EXPECT_EQ(Paths(), Lines{R"(GetObject("WinNT://ARCHIVE/user,user"))"});
    EXPECT_EQ(world.calls.Count("NetWkstaGetInfo"), 0U);
}

TEST_F(DirectoryBind, DropsTheFirstTwoBackslashesAlone) {
    Bind(u"\\\\\\ARCHIVE");
    Bind(u"\\ARCHIVE");
    EXPECT_EQ(Paths(), (Lines{R"(GetObject("WinNT://\ARCHIVE/user,user"))",
                              R"(GetObject("WinNT://\ARCHIVE/user,user"))"}));
}

TEST_F(DirectoryBind, OfADomainIsTheDomainsNameWithoutALookUp) {
    EXPECT_TRUE(Bind(u"PRACTICE"));
    EXPECT_TRUE(Bind(u"practice.test"));
    EXPECT_EQ(Paths(), (Lines{R"(GetObject("WinNT://PRACTICE/user,user"))",
                              R"(GetObject("WinNT://practice.test/user,user"))"}));
    EXPECT_EQ(CallsOf({"NetGetDCName", "DsGetDcNameW"}), Lines{});
}

TEST_F(DirectoryBind, WithoutTheLocalNameGoesOnWithNone) {
    world.Fail("NetWkstaGetInfo", 53);
    EXPECT_FALSE(Bind(u""));
    EXPECT_EQ(Paths(), Lines{R"(GetObject("WinNT:///user,user"))"});
    EXPECT_EQ(Number(), 0x80070035U);
    EXPECT_EQ(error, u"message 15: -2147024843, system 53");
}

TEST_F(DirectoryBind, TheReasonOfAnUnknownLocalNameIsDiscarded) {
    world.Fail("NetWkstaGetInfo", 53);
    Say(u"", u"GetObject", {});
    EXPECT_TRUE(Bind(u""));
    EXPECT_EQ(error, u"untouched");
}

TEST_F(DirectoryBind, NamesTheUserThatItIsGiven) {
    gUserName = u"another";
    ADInitUser(u"PRACTICE", u"user", number, error);
    EXPECT_EQ(Paths(), Lines{R"(GetObject("WinNT://PRACTICE/user,user"))"});
}

TEST_F(DirectoryBind, ThatFailsTellsNumberAndText) {
    EXPECT_FALSE(Bind(u"\\\\MISSING"));
    EXPECT_EQ(Number(), 0x80070035U);
    EXPECT_EQ(error, u"message 15: -2147024843, system 53");
}

TEST_F(DirectoryBind, ThatFailsLeavesAnErrorLine) {
    StartDiagnosing();
    EXPECT_FALSE(Bind(u"\\\\MISSING"));
    EXPECT_EQ(error, u"message 12: -2147024843, GetObject, system 53");
    EXPECT_EQ(Log(), (Lines{R"(Information: -> GetObject "WinNT://MISSING/user,user")",
                            "Error: message 12: -2147024843, GetObject, system 53"}));
    EXPECT_EQ(Names(), (Lines{"Append", "GetObject", "FormatMessageW", "Append"}));
}

TEST_F(DirectoryBind, ThatIsDeniedHasTheRunTimesOwnNumber) {
    Refuse(u"ARCHIVE", u"GetObject", 0x80070005, u"no entry");
    StartDiagnosing();
    EXPECT_FALSE(Bind(u"\\\\ARCHIVE"));
    EXPECT_EQ(number, 70);
    EXPECT_EQ(error, u"message 12: 70, GetObject, no entry");
}

TEST_F(DirectoryBind, WithoutADirectoryFailsInTheServicesWords) {
    world.network.directory.present = false;
    StartDiagnosing();
    EXPECT_FALSE(Bind(u"\\\\ARCHIVE"));
    EXPECT_EQ(Number(), 0x800401E4U);
    EXPECT_EQ(error, u"message 12: -2147221020, GetObject, Invalid syntax");
}

TEST_F(DirectoryBind, AnErrorLineThatCannotBeWrittenIsTrappedWithTheBind) {
    StartDiagnosing();
    world.Fail("Append", 5, 2);
    EXPECT_FALSE(Bind(u"\\\\MISSING"));
    EXPECT_EQ(Number(), 0x80070035U);
    EXPECT_EQ(error, u"message 12: -2147024843, GetObject, system 53");
}

TEST_F(DirectoryBind, ALineThatCannotBeWrittenAheadOfItIsNotTrapped) {
    StartDiagnosing();
    world.Fail("Append", 5);
    EXPECT_EQ(RaisedNumber([this] { Bind(u"\\\\ARCHIVE"); }), 70);
    EXPECT_EQ(Paths(), Lines{});
}

TEST_F(DirectoryBind, LogsNothingWhileNotDiagnosing) {
    OpenLog();
    Bind(u"");
    Bind(u"\\\\MISSING");
    EXPECT_EQ(Log(), Lines{});
}

TEST_F(DirectoryError, OfTheSystemIsToldInTheSystemsWordsWhileDiagnosing) {
    StartDiagnosing();
    EXPECT_EQ(Format(0x80070005), "message 12: -2147024891, Call, system 5");
    EXPECT_EQ(Format(0x80070035), "message 12: -2147024843, Call, system 53");
    EXPECT_EQ(Format(0x800708AD), "message 12: -2147022675, Call, network 2221");
}

TEST_F(DirectoryError, OfAnyOtherKindIsToldAsDescribed) {
    StartDiagnosing();
    EXPECT_EQ(Format(70), "message 12: 70, Call, described");
    EXPECT_EQ(Format(5), "message 12: 5, Call, described");
    EXPECT_EQ(Format(0x00070005), "message 12: 458757, Call, described");
    EXPECT_EQ(Format(0x80080005), "message 12: -2146959355, Call, described");
    EXPECT_EQ(Format(0x80060005), "message 12: -2147090427, Call, described");
    EXPECT_EQ(Format(0xC0070005), "message 12: -1073283067, Call, described");
    EXPECT_EQ(Format(0x8000500D), "message 12: -2147463155, Call, described");
}

TEST_F(DirectoryError, OfTheSystemIsToldAsDescribedWhileNotDiagnosing) {
    EXPECT_EQ(Format(0x80070005), "message 15: -2147024891, described");
    EXPECT_EQ(Format(0x800708AD), "message 15: -2147022675, described");
    EXPECT_EQ(Format(70), "message 15: 70, described");
}

TEST_F(DirectoryError, OfTheSystemHasItsWordsLookedUpWhetherDiagnosingOrNot) {
    const Lines lookup{R"(FormatMessageW("4608", "0", "5"))"};
    Format(0x80070005);
    Format(70);
    EXPECT_EQ(CallsOf({"FormatMessageW"}), lookup);
    StartDiagnosing();
    world.calls.Clear();
    Format(0x80070005);
    Format(70);
    EXPECT_EQ(CallsOf({"FormatMessageW"}), lookup);
}

TEST_F(DirectoryError, IsNotLoggedByItself) {
    StartDiagnosing();
    Format(0x80070005);
    Format(70);
    EXPECT_EQ(Log(), Lines{});
}

TEST_F(DirectoryLength, IsReadFromTheObject) {
    StartDiagnosing();
    EXPECT_EQ(Ask(), 0);
    EXPECT_EQ(length, 6);
    EXPECT_EQ(Log(),
              (Lines{R"(Information: -> GetObject "WinNT://ARCHIVE/user,user")",
                     "Information: -> IADsUser.PasswordMinimumLength", "Information: Min PWD Length = 6"}));
    EXPECT_EQ(Names(), (Lines{"Append", "GetObject", "Append", "IADsUser.PasswordMinimumLength", "Append"}));
}

TEST_F(DirectoryLength, IsOfTheKnownUser) {
    gUserName = u"somebody";
    EXPECT_EQ(Ask(), -1);
    EXPECT_EQ(CallsOf({"GetObject"}), Lines{R"(GetObject("WinNT://ARCHIVE/somebody,user"))"});
}

TEST_F(DirectoryLength, WithoutAnObjectIsMinusOneAndNothingIsSet) {
    StartDiagnosing();
    EXPECT_EQ(Ask(u"\\\\MISSING"), -1);
    EXPECT_EQ(length, 77);
    EXPECT_EQ(Log(), (Lines{R"(Information: -> GetObject "WinNT://MISSING/user,user")",
                            "Error: message 12: -2147024843, GetObject, system 53"}));
}

TEST_F(DirectoryLength, IsMinusOneForEveryFailureOfTheBind) {
    for (const std::uint32_t result : {0x80070005U, 0x8007052EU, 0x80070532U, 0x80070533U, 0x800401E4U}) {
        Refuse(u"ARCHIVE", u"GetObject", result);
        EXPECT_EQ(Ask(), -1) << result;
    }
}

TEST_F(DirectoryLength, OfAnyKindIsMadeA32BitNumber) {
    const std::pair<Variant, std::int32_t> answers[] = {
        {Variant(), 0},   {Variant(9.0), 9}, {Variant(String(u"12")), 12},
        {Variant(7), 7},  {Variant(7.5), 8}, {Variant(false), 0},
        {Variant(-1), -1}};
    for (const auto& [value, wanted] : answers) {
        Say(u"ARCHIVE", u"PasswordMinimumLength", value);
        EXPECT_EQ(Ask(), 0);
        EXPECT_EQ(length, wanted);
    }
}

TEST_F(DirectoryLength, ThatIsNoNumberIsAnErrorAndTheObjectIsFreed) {
    const std::pair<Variant, std::int32_t> answers[] = {{Variant(NullValue()), 94},
                                                        {Variant(ForeignValue()), 13},
                                                        {Variant(String(u"long")), 13},
                                                        {Variant(4294967295.0), 6}};
    for (const auto& [value, wanted] : answers) {
        Say(u"ARCHIVE", u"PasswordMinimumLength", value);
        EXPECT_EQ(RaisedNumber([this] { Ask(); }), wanted);
        EXPECT_EQ(world.OutstandingHandles(), 0U);
    }
}

TEST_F(DirectoryLength, ThatCannotBeReadIsAnErrorBehindTheLineOfItsCall) {
    Refuse(u"ARCHIVE", u"PasswordMinimumLength", 0x80070005);
    StartDiagnosing();
    EXPECT_EQ(RaisedNumber([this] { Ask(); }), 70);
    EXPECT_EQ(Log(), (Lines{R"(Information: -> GetObject "WinNT://ARCHIVE/user,user")",
                            "Information: -> IADsUser.PasswordMinimumLength"}));
}

TEST_F(DirectoryLength, BindsAnewForEachCall) {
    Ask();
    Ask();
    EXPECT_EQ(world.calls.Count("GetObject"), 2U);
    EXPECT_EQ(world.OutstandingHandles(), 0U);
}

} // namespace kestrelmoor::tests
