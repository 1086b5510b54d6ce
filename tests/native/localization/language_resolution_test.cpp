#include "localization/language_resolution.h"

#include "platform/modules.h"
#include "shell/program_state.h"
#include "tests/native/support/program_test.h"
#include "tests/native/support/test_language.h"

namespace kestrelmoor::tests {

namespace {

constexpr char16_t kLocFiles[] = u"HKEY_LOCAL_MACHINE\\Software\\Orvane\\Kestrelmoor\\LocFiles";
constexpr std::int32_t kWindowsNT4WithBuild = 0x24000565;

constexpr std::uint32_t kString = 1;
constexpr std::uint32_t kExpandString = 2;
constexpr std::uint32_t kNumber = 4;

/// Windows XP with an English interface, no library loaded and none to be found.
class LanguageResolution : public ProgramTest {
  protected:
    LanguageResolution() {
        gLocalizer.reset();
        gWinVersion = 0x25010A28;
        world.libraries.all.clear();
    }

    /// A library of the world in the program's folder, or at a path.
    practice::Library& Put(const String& sName, std::vector<std::int16_t> languages) {
        practice::Library library;
        library.path =
            sName.find(u'\\') == String::npos ? u"C:\\Program Files\\Kestrelmoor\\" + sName : sName;
        library.kind = practice::LibraryKind::Scripted;
        library.script.languages = std::move(languages);
        return world.libraries.Put(std::move(library));
    }

    void Configure(const char16_t* sLanguage, std::uint32_t nType, const String& sFile) {
        world.registry.Create(kLocFiles).Set(sLanguage, nType, practice::TextData(sFile));
    }

    /// Loads without a word; the language that runs.
    int Load(std::int16_t nLang) {
        EXPECT_FALSE(LoadLocalization(nLang));
        EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
        return gLocalizer ? gLocalizer->LanguageID() : 0;
    }

    void Refuse(std::int16_t nLang, const std::string& words) {
        EXPECT_TRUE(LoadLocalization(nLang));
        EXPECT_EQ(gLocalizer, nullptr);
        EXPECT_EQ(Boxes(), std::vector<ShownBox>{Exclamation(words)});
    }

    /// The files that were loaded, in order, by what stands behind the program's folder.
    Lines Loaded() const {
        const std::string folder = "C:\\Program Files\\Kestrelmoor\\";
        Lines files;
        for (const practice::Call& call : world.calls.Of("LoadLibraryExW")) {
            const std::string path = ToUtf8(call.arguments.at(0));
            files.push_back(path.starts_with(folder) ? path.substr(folder.size()) : path);
        }
        return files;
    }
};

TEST_F(LanguageResolution, TheLibraryOfTheLanguageIsTaken) {
    Put(u"1031.loc", {1031});
    Put(u"default.loc", {1033});
    EXPECT_EQ(Load(1031), 1031);
    EXPECT_EQ(Loaded(), Lines{"1031.loc"});
    EXPECT_NE(gLocLibHandle, 0U);
}

TEST_F(LanguageResolution, WithoutALibraryOfItsOwnTheLanguageIsAskedOfTheDefaultOne) {
    Put(u"default.loc", {1033, 1036, 1049});
    EXPECT_EQ(Load(1036), 1036);
    EXPECT_EQ(Loaded(), Lines{"default.loc"});
}

TEST_F(LanguageResolution, AnAutomaticLanguageIsThatOfTheInterfaceAndAskedOfTheDefaultLibrary) {
    world.machine.interface_language = 1049;
    Put(u"default.loc", {1033, 1049});
    EXPECT_EQ(Load(0), 1049);
    EXPECT_EQ(CallsOf({"GetUserDefaultUILanguage", "GetThreadLocale"}), Lines{"GetUserDefaultUILanguage()"});
}

TEST_F(LanguageResolution, AheadOfWindows2000TheThreadsLocaleTellsTheLanguageInItsLowBits) {
    gWinVersion = kWindowsNT4WithBuild;
    world.machine.interface_language = 1049;
    world.machine.thread_locale = 0x00010407;
    Put(u"1031.loc", {1031});
    EXPECT_EQ(Load(0), 1031);
    EXPECT_EQ(CallsOf({"GetUserDefaultUILanguage", "GetThreadLocale"}), Lines{"GetThreadLocale()"});
}

TEST_F(LanguageResolution, FromWindows2000OnTheInterfaceTellsTheLanguage) {
    gWinVersion = 0x25000000;
    world.machine.interface_language = 1031;
    Put(u"1031.loc", {1031});
    EXPECT_EQ(Load(0), 1031);
}

TEST_F(LanguageResolution, AnUnknownLanguageOfTheUserIsEnglish) {
    world.machine.interface_language = 0;
    Put(u"1033.loc", {1033});
    EXPECT_EQ(Load(0), 1033);
    gLocalizer.reset();
    gWinVersion = kWindowsNT4WithBuild;
    world.machine.thread_locale = 0x00010000;
    EXPECT_EQ(Load(0), 1033);
}

TEST_F(LanguageResolution, ALanguageAbove32767IsANegativeNumberInTheFilesName) {
    world.machine.interface_language = 0x8400;
    world.registry.Create(kLocFiles);
    Put(u"-31744.loc", {-31744});
    EXPECT_EQ(Load(0), -31744);
    EXPECT_EQ(Loaded(), Lines{"-31744.loc"});
    EXPECT_EQ(CallsOf({"RegQueryValueExW"}), Lines{R"(RegQueryValueExW("-31744"))"});
}

TEST_F(LanguageResolution, AConfiguredPathIsUsedAsItStandsWhateverItsExtension) {
    Put(u"C:\\Lang\\ru.dll", {1049});
    Put(u"1049.loc", {1049});
    Configure(u"1049", kString, u"C:\\Lang\\ru.dll");
    EXPECT_EQ(Load(1049), 1049);
    EXPECT_EQ(Loaded(), Lines{"C:\\Lang\\ru.dll"});
}

TEST_F(LanguageResolution, AConfiguredPathWithABackslashIsRelativeToTheCurrentDirectory) {
    world.files.current_directory = u"D:\\Work";
    Put(u"D:\\Work\\loc\\ru.loc", {1049});
    Configure(u"1049", kString, u"loc\\ru.loc");
    EXPECT_EQ(Load(1049), 1049);
    EXPECT_EQ(Loaded(), Lines{"loc\\ru.loc"});
}

TEST_F(LanguageResolution, AConfiguredNameIsSoughtInTheProgramsFolder) {
    world.files.current_directory = u"D:\\Work";
    Put(u"ru.loc", {1049});
    Configure(u"1049", kString, u"ru.loc");
    EXPECT_EQ(Load(1049), 1049);
    EXPECT_EQ(Loaded(), Lines{"ru.loc"});
}

TEST_F(LanguageResolution, TheFirstConfiguredValueIsFoundToo) {
    Put(u"de.loc", {1031});
    Configure(u"1031", kString, u"de.loc");
    Configure(u"1049", kString, u"ru.loc");
    EXPECT_EQ(Load(1031), 1031);
}

TEST_F(LanguageResolution, AConfiguredPathMayHoldVariables) {
    world.machine.environment[u"LANG"] = u"C:\\Lang";
    Put(u"C:\\Lang\\ru.loc", {1049});
    Configure(u"1049", kExpandString, u"%LANG%\\ru.loc");
    EXPECT_EQ(Load(1049), 1049);
}

TEST_F(LanguageResolution, AConfiguredValueThatIsNoTextIsIgnored) {
    Put(u"1049.loc", {1049});
    world.registry.Create(kLocFiles).Set(u"1049", kNumber, {1, 0, 0, 0});
    EXPECT_EQ(Load(1049), 1049);
    EXPECT_EQ(Loaded(), Lines{"1049.loc"});
}

TEST_F(LanguageResolution, AConfiguredEmptyNameIsTheProgramsFolderAndSoNoFile) {
    world.files.CreateFolder(u"C:\\Program Files\\Kestrelmoor");
    Put(u"1049.loc", {1049});
    Put(u"default.loc", {1049});
    Configure(u"1049", kString, u"");
    EXPECT_EQ(Load(1049), 1049);
    EXPECT_EQ(Loaded(), Lines{"default.loc"});
}

TEST_F(LanguageResolution, AMissingConfiguredFileGivesWayToTheDefaultLibrary) {
    Put(u"1049.loc", {1049});
    Put(u"default.loc", {1049});
    Configure(u"1049", kString, u"C:\\Lang\\ru.dll");
    EXPECT_EQ(Load(1049), 1049);
    EXPECT_EQ(Loaded(), Lines{"default.loc"});
}

TEST_F(LanguageResolution, AFolderWithTheNameOfALibraryCountsAsNoFile) {
    world.files.CreateFolder(u"C:\\Program Files\\Kestrelmoor\\1049.loc");
    Put(u"default.loc", {1049});
    EXPECT_EQ(Load(1049), 1049);
    EXPECT_EQ(Loaded(), Lines{"default.loc"});
}

TEST_F(LanguageResolution, AFileThatCannotBeLookedAtCountsAsNoFile) {
    Put(u"1049.loc", {1049});
    Put(u"default.loc", {1049});
    world.Fail("GetFileAttributesW", 5);
    EXPECT_EQ(Load(1049), 1049);
    EXPECT_EQ(Loaded(), Lines{"default.loc"});
}

TEST_F(LanguageResolution, AListOfConfiguredFilesThatCannotBeReadIsNoList) {
    Put(u"1049.loc", {1049});
    Configure(u"1049", kString, u"C:\\Lang\\ru.dll");
    world.Fail("RegOpenKeyExW", 5);
    EXPECT_EQ(Load(1049), 1049);
    gLocalizer.reset();
    world.Fail("RegQueryValueExW", 5);
    EXPECT_EQ(Load(1049), 1049);
    EXPECT_EQ(Loaded(), (Lines{"1049.loc", "1049.loc"}));
}

TEST_F(LanguageResolution, ADefaultLibraryThatCannotBeLookedAtIsNoFileEither) {
    Put(u"default.loc", {1033});
    world.Fail("GetFileAttributesW", 5, 0);
    Refuse(0, "Localization library not found.");
}

TEST_F(LanguageResolution, AFileThatTheSystemDoesNotLoadStopsIt) {
    Put(u"1049.loc", {1049});
    world.Fail("LoadLibraryExW", 5);
    Refuse(1049, "Error loading localization library.");
}

TEST_F(LanguageResolution, WithoutAnyFileTheUserIsTold) {
    Refuse(1049, "Localization library not found.");
    EXPECT_EQ(Loaded(), Lines{});
    EXPECT_EQ(CallsOf({"GetFileAttributesW"}),
              (Lines{R"(GetFileAttributesW("C:\Program Files\Kestrelmoor\1049.loc"))",
                     R"(GetFileAttributesW("C:\Program Files\Kestrelmoor\default.loc"))"}));
}

TEST_F(LanguageResolution, AFolderInPlaceOfTheDefaultLibraryIsNoFileEither) {
    world.files.CreateFolder(u"C:\\Program Files\\Kestrelmoor\\default.loc");
    Refuse(0, "Localization library not found.");
}

TEST_F(LanguageResolution, WithoutAnyFileTheFormerLibraryStaysBehindItsHandle) {
    Put(u"1031.loc", {1031});
    Load(1031);
    const platform::ModuleHandle former = gLocLibHandle;
    gLocalizer.reset();
    world.libraries.all.clear();
    Refuse(1049, "Localization library not found.");
    EXPECT_EQ(gLocLibHandle, former);
}

TEST_F(LanguageResolution, ABrokenFileStopsItAlthoughTheDefaultLibraryWouldServe) {
    Put(u"1049.loc", {}).kind = practice::LibraryKind::Broken;
    Put(u"default.loc", {1033, 1049});
    Refuse(1049, "Error loading localization library.");
    EXPECT_EQ(Loaded(), Lines{"1049.loc"});
    EXPECT_EQ(gLocLibHandle, 0U);
}

TEST_F(LanguageResolution, ALibraryThatLacksItsExportStopsItAndStaysBehindItsHandle) {
    Put(u"1049.loc", {1049}).lacks = {"DllGetClassObject"};
    Refuse(1049, "Error loading localization library.");
    EXPECT_NE(gLocLibHandle, 0U);
}

TEST_F(LanguageResolution, ALibraryWithoutTheClassStopsIt) {
    Put(u"1049.loc", {1049}).script.class_result = static_cast<std::int32_t>(0x80040111);
    Refuse(1049, "Error loading localization library.");
}

TEST_F(LanguageResolution, ALibraryThatMakesNoObjectStopsIt) {
    Put(u"1049.loc", {1049}).script.create_result = static_cast<std::int32_t>(0x8007000E);
    Refuse(1049, "Error loading localization library.");
}

TEST_F(LanguageResolution, ALibraryThatGivesNoObjectLeavesNoLanguageNotEvenAFormerOne) {
    SpeakTestLanguage();
    ASSERT_NE(gLocalizer, nullptr);
    Put(u"1049.loc", {}).kind = practice::LibraryKind::Broken;
    Refuse(1049, "Error loading localization library.");
}

TEST_F(LanguageResolution, AReadOnlyLibraryIsAFileLikeAnyOther) {
    Put(u"1031.loc", {1031});
    world.files.CreateFile(u"C:\\Program Files\\Kestrelmoor\\1031.loc").attributes =
        practice::file_attribute::kReadOnly;
    EXPECT_EQ(Load(1031), 1031);
}

TEST_F(LanguageResolution, AChosenLanguageThatFailsFallsBackToTheAutomaticOne) {
    world.machine.interface_language = 1031;
    Put(u"1049.loc", {});
    Put(u"1031.loc", {1031});
    EXPECT_EQ(Load(1049), 1031);
    EXPECT_EQ(Loaded(), (Lines{"1049.loc", "1031.loc"}));
}

TEST_F(LanguageResolution, TheChosenNumberIsNotTouchedByTheFallBack) {
    gLangID = 1049;
    Put(u"1049.loc", {});
    Put(u"default.loc", {1033});
    Load(gLangID);
    EXPECT_EQ(gLangID, 1049);
}

TEST_F(LanguageResolution, AnAutomaticLanguageThatFailsFallsBackToEnglish) {
    world.machine.interface_language = 1049;
    Put(u"1049.loc", {});
    Put(u"1033.loc", {1033});
    EXPECT_EQ(Load(0), 1033);
    EXPECT_EQ(Loaded(), (Lines{"1049.loc", "1033.loc"}));
}

TEST_F(LanguageResolution, EnglishMayComeOutOfTheDefaultLibrary) {
    world.machine.interface_language = 1049;
    Put(u"1049.loc", {});
    Put(u"default.loc", {1033});
    EXPECT_EQ(Load(0), 1033);
    EXPECT_EQ(Loaded(), (Lines{"1049.loc", "default.loc"}));
}

TEST_F(LanguageResolution, TheChainIsThreeDeepAtMost) {
    world.machine.interface_language = 1031;
    Put(u"1049.loc", {});
    Put(u"1031.loc", {});
    Put(u"1033.loc", {});
    Refuse(1049, "Error initializing localization library.");
    EXPECT_EQ(Loaded(), (Lines{"1049.loc", "1031.loc", "1033.loc"}));
}

TEST_F(LanguageResolution, EnglishThatFailsTriesNothingElse) {
    world.machine.interface_language = 1031;
    Put(u"1033.loc", {});
    Put(u"1031.loc", {1031});
    Refuse(1033, "Error initializing localization library.");
    EXPECT_EQ(Loaded(), Lines{"1033.loc"});
}

TEST_F(LanguageResolution, AnAutomaticEnglishThatFailsTriesNothingElse) {
    Put(u"default.loc", {1031});
    Refuse(0, "Error initializing localization library.");
    EXPECT_EQ(Loaded(), Lines{"default.loc"});
}

TEST_F(LanguageResolution, TheFormerLibraryIsUnloadedByTheNextLoad) {
    world.machine.interface_language = 1049;
    Put(u"1049.loc", {});
    Put(u"1033.loc", {1033});
    Load(0);
    EXPECT_EQ(CallsOf({"LoadLibraryExW", "FreeLibrary"}),
              (Lines{R"(LoadLibraryExW("C:\Program Files\Kestrelmoor\1049.loc", "0"))", "FreeLibrary()",
                     R"(LoadLibraryExW("C:\Program Files\Kestrelmoor\1033.loc", "0"))"}));
}

TEST_F(LanguageResolution, AFormerLibraryThatRefusesToLeaveStaysForGoodAndTheNextOneComesUp) {
    Put(u"1031.loc", {1031});
    Put(u"1036.loc", {1036});
    Load(1031);
    const std::unique_ptr<ILocalization> held = std::move(gLocalizer);
    const platform::ModuleHandle former = gLocLibHandle;
    EXPECT_EQ(Load(1036), 1036);
    EXPECT_NE(gLocLibHandle, former);
    EXPECT_EQ(world.calls.Count("FreeLibrary"), 0U);
    modules_left = 1;
}

TEST_F(LanguageResolution, AFormerLibraryThatCannotBeAskedStaysForGoodAndTheNextOneComesUp) {
    Put(u"1031.loc", {1031}).lacks = {"DllCanUnloadNow"};
    Put(u"1036.loc", {1036});
    Load(1031);
    gLocalizer.reset();
    EXPECT_EQ(Load(1036), 1036);
    modules_left = 1;
}

TEST_F(LanguageResolution, TheListOfConfiguredFilesIsReadAndClosed) {
    Configure(u"1031", kString, u"de.loc");
    Put(u"de.loc", {1031});
    Load(1031);
    EXPECT_EQ(CallsOf({"RegOpenKeyExW", "RegCloseKey", "LoadLibraryExW"}),
              (Lines{R"(RegOpenKeyExW("HKEY_LOCAL_MACHINE\Software\Orvane\Kestrelmoor\LocFiles", "131097"))",
                     "RegCloseKey()", R"(LoadLibraryExW("C:\Program Files\Kestrelmoor\de.loc", "0"))"}));
}

TEST_F(LanguageResolution, TheEnglishLibraryServesAnyEnglishAndIsTheLastResortForTheOthers) {
    practice::Library real;
    real.path = u"C:\\Program Files\\Kestrelmoor\\default.loc";
    real.host_file = "program/default.loc";
    world.libraries.Put(real);
    EXPECT_EQ(Load(2057), 2057);
    gLocalizer.reset();
    EXPECT_EQ(Load(1049), 1033);
    EXPECT_EQ(Loaded(), (Lines{"default.loc", "default.loc", "default.loc"}));
}

class HelpFileSearch : public LanguageResolution {
  protected:
    HelpFileSearch() { gHelpFile = u"former"; }

    /// Brings a library up that tells this name.
    void Tell(const char* name = "english.html") {
        Put(u"default.loc", {1033}).script.help_file = name;
        Load(1033);
    }
};

TEST_F(HelpFileSearch, TheLibrarysHelpFileIsFoundInTheProgramsFolder) {
    world.files.CreateFile(u"C:\\Program Files\\Kestrelmoor\\english.html");
    Tell();
    FindHelpFile();
    EXPECT_EQ(gHelpFile, u"C:\\Program Files\\Kestrelmoor\\english.html");
}

TEST_F(HelpFileSearch, ANameThatLeadsUpAndAwayIsFollowed) {
    world.files.CreateFile(u"C:\\Program Files\\Kestrelmoor\\..\\..\\Windows\\notepad.exe");
    Tell("..\\..\\Windows\\notepad.exe");
    FindHelpFile();
    EXPECT_EQ(gHelpFile, u"C:\\Program Files\\Kestrelmoor\\..\\..\\Windows\\notepad.exe");
}

TEST_F(HelpFileSearch, AHelpFileThatIsNotThereIsNone) {
    Tell();
    FindHelpFile();
    EXPECT_EQ(gHelpFile, u"");
}

TEST_F(HelpFileSearch, AHelpFileThatCannotBeLookedAtIsNone) {
    world.files.CreateFile(u"C:\\Program Files\\Kestrelmoor\\english.html");
    Tell();
    world.Fail("GetFileAttributesW", 5);
    FindHelpFile();
    EXPECT_EQ(gHelpFile, u"");
}

} // namespace

} // namespace kestrelmoor::tests
