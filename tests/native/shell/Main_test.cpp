#include "shell/Main.h"

#include "runtime/forms/application.h"
#include "shell/log.h"
#include "shell/program_state.h"
#include "tests/native/support/program_test.h"

namespace kestrelmoor::tests {

namespace {

constexpr char16_t kSettingsKey[] = u"HKEY_CURRENT_USER\\Software\\Orvane\\Kestrelmoor";

/// The program's start, with a default library that serves English and says "text NUMBER", on a day when no
/// password is about to expire.
class StartUp : public ProgramTest {
  protected:
    StartUp() {
        world.network.Local().store.policy.max_age = practice::kForever;
        gLocalizer.reset();
        Put(u"default.loc", {1033});
    }

    practice::LanguageScript& Put(const String& sName, std::vector<std::int16_t> languages) {
        practice::Library library;
        library.path = u"C:\\Program Files\\Kestrelmoor\\" + sName;
        library.kind = practice::LibraryKind::Scripted;
        library.script.languages = std::move(languages);
        return world.libraries.Put(std::move(library)).script;
    }

    void PutEnglish() {
        practice::Library library;
        library.path = u"C:\\Program Files\\Kestrelmoor\\default.loc";
        library.host_file = "program/default.loc";
        world.libraries.Put(std::move(library));
    }

    void Start(const char16_t* sArguments) {
        world.machine.command_line = sArguments;
        Main();
    }

    void StoreNumber(const char16_t* sName, std::uint32_t number) {
        world.registry.Create(kSettingsKey).Set(sName, 4, practice::NumberData(number));
    }

    void JoinDomain(bool with_domain_account) {
        world.network.joined = true;
        world.network.Local().group = u"PRACTICE";
        world.network.user.sid =
            with_domain_account ? u"S-1-5-21-4004-5005-6006-1101" : u"S-1-5-21-1001-2002-3003-1000";
    }

    /// The first call of what stands behind the numbered steps of the start.
    Lines Steps() const {
        return CallsOf({"GetVersionExA", "CreateMutexA", "LoadLibraryExW", "FreeLibrary", "RegOpenKeyExW",
                        "MessageBoxW", "SHGetSpecialFolderLocation", "OpenForAppending",
                        "NetWkstaUserGetInfo", "LsaOpenPolicy", "NetWkstaGetInfo"});
    }

    bool SettingsWereRead() const {
        for (const practice::Call& call : world.calls.Of("RegQueryValueExW"))
            if (call.arguments.at(0) == u"ReminderTime")
                return true;
        return false;
    }

    static std::size_t OpenWindows() { return Application::Current().Forms().size(); }
};

TEST_F(StartUp, RunsItsStepsInOrder) {
    JoinDomain(true);
    Start(u"/d");
    EXPECT_EQ(Steps(),
              (Lines{R"(GetVersionExA())", R"(CreateMutexA("{5C1E7A90-3B2D-4E68-9F14-A07D2C86B3E1}"))",
                     R"(RegOpenKeyExW("HKEY_LOCAL_MACHINE\Software\Orvane\Kestrelmoor\LocFiles", "131097"))",
                     R"(LoadLibraryExW("C:\Program Files\Kestrelmoor\default.loc", "0"))",
                     R"(RegOpenKeyExW("HKEY_CURRENT_USER\Software\Orvane\Kestrelmoor", "131097"))",
                     R"(SHGetSpecialFolderLocation("5"))",
                     R"(OpenForAppending("C:\Users\user\Documents\Moorlink.log"))",
                     R"(RegOpenKeyExW("HKEY_CURRENT_USER\Software\Orvane\Kestrelmoor", "131097"))",
                     R"(RegOpenKeyExW("HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Run", )"
                     R"("131097"))",
                     R"(NetWkstaUserGetInfo())", R"(LsaOpenPolicy("1"))", R"(NetWkstaGetInfo())"}));
}

TEST_F(StartUp, TheVersionIsPackedFieldByField) {
    world.machine.version = {2, 5, 1, 2600};
    EXPECT_EQ(GetWinVersion(), 0x25010A28);
    world.machine.version = {2, 10, 0, 19045};
    EXPECT_EQ(GetWinVersion(), 0x2A004A65);
    world.machine.version = {1, 4, 10, 0x040A08AE};
    EXPECT_EQ(GetWinVersion(), 0x140A08AE);
    world.machine.version = {0x12, 0x34, 0x156, 0x17890};
    EXPECT_EQ(GetWinVersion(), 0x24567890);
    world.Fail("GetVersionExA", 1);
    EXPECT_EQ(GetWinVersion(), 0);
}

TEST_F(StartUp, AnExistingMutexChangesNothing) {
    world.Fail("CreateMutexA", 183);
    Start(u"/?");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{Information("text 17")});
}

TEST_F(StartUp, ASecondInstanceRunsAsTheFirst) {
    world.mutexes = {"{5C1E7A90-3B2D-4E68-9F14-A07D2C86B3E1}"};
    Start(u"/f");
    EXPECT_EQ(OpenWindows(), 1U);
}

TEST_F(StartUp, WithoutAnyLibraryItEndsAheadOfTheCommandLine) {
    world.libraries.Remove(u"C:\\Program Files\\Kestrelmoor\\default.loc");
    Start(u"/x");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{Exclamation("Localization library not found.")});
    EXPECT_EQ(gLocalizer, nullptr);
    EXPECT_FALSE(SettingsWereRead());
}

TEST_F(StartUp, ABadCommandLineEndsIt) {
    Start(u"/f /x");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{Exclamation("text 10")});
    EXPECT_EQ(world.calls.Count("NetWkstaUserGetInfo"), 0U);
    EXPECT_EQ(OpenWindows(), 0U);
}

TEST_F(StartUp, ABadSwitchWinsOverTheUsage) {
    Start(u"/? /x");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{Exclamation("text 10")});
}

TEST_F(StartUp, TheUsageIsShownWithoutSettingsOrLog) {
    Start(u"/? /d /f");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{Information("text 17")});
    EXPECT_FALSE(SettingsWereRead());
    EXPECT_EQ(world.calls.Count("OpenForAppending"), 0U);
    EXPECT_EQ(OpenWindows(), 0U);
}

TEST_F(StartUp, AStoredLanguageReplacesTheAutomaticLibrary) {
    Put(u"1031.loc", {1031});
    StoreNumber(u"LangID", 1031);
    Start(u"");
    EXPECT_EQ(gLangID, 1031);
    EXPECT_EQ(gLocalizer->LanguageID(), 1031);
    EXPECT_EQ(CallsOf({"LoadLibraryExW", "FreeLibrary"}),
              (Lines{R"(LoadLibraryExW("C:\Program Files\Kestrelmoor\default.loc", "0"))", "FreeLibrary()",
                     R"(LoadLibraryExW("C:\Program Files\Kestrelmoor\1031.loc", "0"))"}));
}

TEST_F(StartUp, ACommandedLanguageOverrulesTheStoredOne) {
    Put(u"1031.loc", {1031});
    Put(u"1036.loc", {1036});
    StoreNumber(u"LangID", 1031);
    Start(u"/l 1036");
    EXPECT_EQ(gLangID, 1036);
    EXPECT_EQ(gLocalizer->LanguageID(), 1036);
}

TEST_F(StartUp, TheLanguageThatRunsAlreadyIsNotLoadedAgain) {
    Start(u"/l 1033");
    EXPECT_EQ(gLangID, 1033);
    EXPECT_EQ(world.calls.Count("LoadLibraryExW"), 1U);
    EXPECT_EQ(world.calls.Count("FreeLibrary"), 0U);
}

TEST_F(StartUp, AnAutomaticLanguageIsNotReconciled) {
    StoreNumber(u"LangID", 1031);
    Put(u"1031.loc", {1031});
    Start(u"/l");
    EXPECT_EQ(gLangID, 0);
    EXPECT_EQ(gLocalizer->LanguageID(), 1033);
}

TEST_F(StartUp, ALibraryThatAnswersAnotherLanguageMakesTheChoiceAutomatic) {
    practice::LanguageScript& script = Put(u"default.loc", {1033});
    script.accepts_any = true;
    script.answers = 1033;
    Start(u"/l 1031");
    EXPECT_EQ(gLangID, 0);
    EXPECT_EQ(gLocalizer->LanguageID(), 1033);
    EXPECT_TRUE(SettingsWereRead());
}

TEST_F(StartUp, ALanguageWhoseLibraryFailsAtInitializeRunsInTheAutomaticOne) {
    Put(u"1049.loc", {});
    Start(u"/l 1049");
    EXPECT_EQ(gLangID, 0);
    EXPECT_EQ(gLocalizer->LanguageID(), 1033);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(StartUp, ALanguageThatCannotBeLoadedEndsItAfterABox) {
    practice::Library broken;
    broken.path = u"C:\\Program Files\\Kestrelmoor\\1031.loc";
    broken.kind = practice::LibraryKind::Broken;
    world.libraries.Put(broken);
    Start(u"/l 1031 /f");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{Exclamation("Error loading localization library.")});
    EXPECT_EQ(gLocalizer, nullptr);
    EXPECT_FALSE(SettingsWereRead());
    EXPECT_EQ(OpenWindows(), 0U);
}

TEST_F(StartUp, ALibraryThatCannotBeAskedToLeaveIsAnErrorThatIsNotTrapped) {
    Put(u"1031.loc", {1031});
    practice::Library library = *world.libraries.Find(u"C:\\Program Files\\Kestrelmoor\\default.loc");
    library.lacks = {"DllCanUnloadNow"};
    world.libraries.Put(library);
    EXPECT_EQ(static_cast<std::uint32_t>(RaisedNumber([this] { Start(u"/l 1031"); })), 0x8007007FU);
    EXPECT_EQ(gLocalizer, nullptr);
}

TEST_F(StartUp, ASystemOlderThanTheFirstThatServesIsRefused) {
    const practice::SystemVersion old_ones[] = {{1, 4, 10, 2222}, {1, 4, 90, 3000}, {2, 3, 51, 1057}};
    for (const practice::SystemVersion& version : old_ones) {
        world.boxes.Clear();
        gLocalizer.reset();
        world.machine.version = version;
        Start(u"/? /f");
        EXPECT_EQ(Boxes(), std::vector<ShownBox>{Exclamation("text 1")}) << version.build;
    }
    EXPECT_FALSE(SettingsWereRead());
}

TEST_F(StartUp, TheFirstSystemThatServesIsTaken) {
    world.machine.version = {2, 4, 0, 1381};
    Start(u"");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_EQ(gUserName, u"user");
}

TEST_F(StartUp, TheGateLetsItsOwnVersionIn) {
    world.machine.version = {2, 4, 0, 0};
    Start(u"");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_EQ(gUserName, u"user");
}

TEST_F(StartUp, AVersionThatCannotBeLearnedIsRefused) {
    world.Fail("GetVersionExA", 1);
    Start(u"");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{Exclamation("text 1")});
}

TEST_F(StartUp, TheLogBeginsInTheDocumentsFolderWithTheDate) {
    PutEnglish();
    Start(u"/d /f");
    EXPECT_EQ(gLogFileName, u"C:\\Users\\user\\Documents\\Moorlink.log");
    EXPECT_EQ(LinesOf(gLogFileName),
              (Lines{"Information: Log started on 3/2/2026 9:00:00 AM", "Information: -> NetWkstaUserGetInfo",
                     "Information: Current User = user", "Information: -> LsaOpenPolicy",
                     "Information: -> LsaQueryInformationPolicy", "Information: Domain Member = False"}));
}

TEST_F(StartUp, AStartThatEndsInSilenceLogsWhatItAskedOfEachTarget) {
    PutEnglish();
    Start(u"/d");
    const Lines log = LinesOf(gLogFileName);
    ASSERT_GT(log.size(), 6U);
    EXPECT_EQ(Lines(log.begin() + 6, log.end()),
              (Lines{"Information: -> NetWkstaGetInfo",
                     "Information: Computer Name = \\\\WORKBENCH",
                     "Information: -> GetObject \"WinNT://WORKBENCH/user,user\"",
                     "Error: GetObject failed with error -2147221020: Invalid syntax",
                     "Information: -> NetUserGetInfo \"\" \"user\"",
                     "Information: Password status = OK",
                     "Information: -> NetUserModalsGet \"\"",
                     "Information: Max PWD Age = -1",
                     "Information: Min PWD Length = 4",
                     "Information: Password status = Never expires",
                     "Information: -> GetObject \"WinNT://ARCHIVE/user,user\"",
                     "Error: GetObject failed with error -2147221020: Invalid syntax",
                     "Information: -> NetUserGetInfo \"\\\\ARCHIVE\" \"user\"",
                     "Information: Password status = OK",
                     "Information: -> NetUserModalsGet \"\\\\ARCHIVE\"",
                     "Information: Max PWD Age = -1",
                     "Information: Min PWD Length = 6",
                     "Information: Password status = Never expires",
                     "Information: -> GetObject \"WinNT://PRACTICE/user,user\"",
                     "Error: GetObject failed with error -2147221020: Invalid syntax",
                     "Information: -> NetGetDCName \"PRACTICE\"",
                     "Information: Primary DC Name = \\\\DC1",
                     "Information: -> NetUserGetInfo \"\\\\DC1\" \"user\"",
                     "Information: Password status = OK",
                     "Information: -> NetUserModalsGet \"\\\\DC1\"",
                     "Information: Max PWD Age = 7776000",
                     "Information: Min PWD Length = 8",
                     "Information: Seconds before password expiration = 4752600"}));
}

TEST_F(StartUp, NoLogIsOpenedWithoutTheSwitch) {
    Start(u"");
    EXPECT_EQ(world.calls.Count("NetUserGetInfo"), 3U) << "the start went on to its end";
    EXPECT_EQ(world.calls.Count("OpenForAppending"), 0U);
}

TEST_F(StartUp, TheLogHasTheNameOfTheCommandLine) {
    Start(u"/d \"C:\\Users\\user\\my log.txt\"");
    EXPECT_EQ(LinesOf(u"C:\\Users\\user\\my log.txt").at(0), "Information: text 18");
    EXPECT_EQ(world.calls.Count("SHGetSpecialFolderLocation"), 0U);
}

TEST_F(StartUp, WithoutAPathOfTheDocumentsFolderTheLogStandsInTheRootOfTheDrive) {
    world.machine.special_folders[5] = u"";
    Start(u"/d");
    EXPECT_EQ(gLogFileName, u"\\Moorlink.log");
    EXPECT_EQ(LinesOf(u"C:\\Moorlink.log").at(0), "Information: text 18");
}

TEST_F(StartUp, ALogThatCannotBeOpenedIsToldAndTheProgramGoesOnWithoutOne) {
    Start(u"/d C:\\Missing\\a.log /f");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{Exclamation("text 16")});
    EXPECT_TRUE(gLogging);
    EXPECT_EQ(world.calls.Count("Append"), 0U);
    EXPECT_EQ(gUserName, u"user");
    EXPECT_EQ(OpenWindows(), 1U);
}

TEST_F(StartUp, ALogThatCannotBeWrittenIsToldAndClosed) {
    world.Fail("Append", 112);
    Start(u"/d");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{Exclamation("text 16")});
    EXPECT_TRUE(gLogging);
    EXPECT_EQ(world.calls.Count("Append"), 1U);
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::AppendFile), 0U);
    EXPECT_EQ(gUserName, u"user");
}

TEST_F(StartUp, AFailureToFindTheDocumentsFolderIsNotTrapped) {
    world.Fail("SHGetSpecialFolderLocation", 0x80070005);
    EXPECT_EQ(RaisedNumber([this] { Start(u"/d"); }), 70);
    EXPECT_FALSE(SettingsWereRead());
}

TEST_F(StartUp, ALineThatCannotBeWrittenLaterOnIsNotTrapped) {
    world.Fail("Append", 5, 2);
    EXPECT_EQ(RaisedNumber([this] { Start(u"/d"); }), 70);
}

TEST_F(StartUp, ANetworkLibraryThatCannotBeBoundIsNotTrapped) {
    world.network.library_present = false;
    EXPECT_EQ(RaisedNumber([this] { Start(u""); }), 53);
}

TEST_F(StartUp, SettingsAreLoaded) {
    StoreNumber(u"ReminderTime", 3600);
    Start(u"");
    EXPECT_EQ(gReminderTime, 3600);
    EXPECT_EQ(gServerCount, 2);
}

TEST_F(StartUp, AStandAloneComputerHasNoDomainAndItsPasswordIsATarget) {
    Start(u"/f");
    EXPECT_EQ(gUserName, u"user");
    EXPECT_FALSE(gDomainMember);
    EXPECT_EQ(gDomainName, u"");
    EXPECT_TRUE(gSyncLocal);
    EXPECT_EQ(world.calls.Count("NetWkstaGetInfo"), 0U);
}

TEST_F(StartUp, ADomainAccountsLocalPasswordIsNoTargetWhateverIsStored) {
    JoinDomain(true);
    StoreNumber(u"Options", 2);
    Start(u"");
    EXPECT_TRUE(gDomainMember);
    EXPECT_EQ(gDomainName, u"PRACTICE");
    EXPECT_FALSE(gSyncLocal);
    EXPECT_EQ(world.registry.FindValue(kSettingsKey, u"Options")->data, practice::NumberData(2));
}

TEST_F(StartUp, ALocalAccountOnAComputerOfADomainKeepsTheOption) {
    JoinDomain(false);
    Start(u"");
    EXPECT_FALSE(gDomainMember);
    EXPECT_EQ(gDomainName, u"");
    EXPECT_TRUE(gSyncLocal);
}

TEST_F(StartUp, AMembershipThatCannotBeLearnedCountsAsNoneWithoutAWord) {
    JoinDomain(true);
    world.Fail("LsaOpenPolicy", 0xC0000022);
    Start(u"");
    EXPECT_FALSE(gDomainMember);
    EXPECT_TRUE(gSyncLocal);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(StartUp, ADomainNameThatCannotBeLearnedStaysEmptyWithoutAWord) {
    JoinDomain(true);
    world.Fail("NetWkstaGetInfo", 5);
    Start(u"");
    EXPECT_TRUE(gDomainMember);
    EXPECT_EQ(gDomainName, u"");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(StartUp, AKnownUserWithForceOpensTheWindowWithoutEvaluatingExpiry) {
    Start(u"/f");
    EXPECT_EQ(OpenWindows(), 1U);
    EXPECT_EQ(gPassFormCount, 1);
    EXPECT_EQ(world.calls.Count("NetUserGetInfo"), 0U);
    EXPECT_EQ(world.calls.Count("NetUserModalsGet"), 0U);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(StartUp, ForceOpensTheWindowWithNothingToDoToo) {
    world.registry.Create(kSettingsKey).values.clear();
    StoreNumber(u"Options", 0);
    Start(u"/f");
    EXPECT_EQ(OpenWindows(), 1U);
}

TEST_F(StartUp, AKnownUserWithoutForceIsNotShownAWindowWhileThereIsNothingToSay) {
    Start(u"");
    EXPECT_EQ(OpenWindows(), 0U);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(StartUp, AnUnknownUserWithForceIsToldWhy) {
    world.Fail("NetWkstaUserGetInfo", 5);
    Start(u"/f");
    EXPECT_EQ(gUserName, u"");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{Exclamation("text 15")});
    EXPECT_EQ(OpenWindows(), 0U);
}

TEST_F(StartUp, AnUnknownUserWithoutForceEndsInSilence) {
    world.Fail("NetWkstaUserGetInfo", 5);
    Start(u"");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_EQ(OpenWindows(), 0U);
}

TEST_F(StartUp, TheReasonOfAnUnknownUserIsNotReplacedByLaterFailures) {
    PutEnglish();
    world.Fail("NetWkstaUserGetInfo", 53);
    world.Fail("LsaOpenPolicy", 0xC0000022);
    Start(u"/f");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{Exclamation("Error 53: system 53")});
}

} // namespace

} // namespace kestrelmoor::tests
