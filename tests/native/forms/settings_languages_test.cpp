#include "tests/native/forms/settings_window.h"

namespace kestrelmoor::tests {

namespace {

constexpr char16_t kLocFiles[] = u"HKEY_LOCAL_MACHINE\\Software\\Orvane\\Kestrelmoor\\LocFiles";
constexpr char16_t kDefaultLibrary[] = u"C:\\Program Files\\Kestrelmoor\\default.loc";

/// A program started in C:\Work, where no library lies, with a default library that is of no use.
class SettingsLanguages : public SettingsWindow {
  protected:
    SettingsLanguages() {
        world.files.CreateFolder(u"C:\\Work");
        world.files.current_directory = u"C:\\Work";
        world.libraries.Remove(kDefaultLibrary);
        world.machine.language_names = {
            {1031, u"German"}, {1033, u"English"}, {1049, u"Russian"}, {1036, u"French"}};
    }

    practice::LanguageScript& PutDefault(std::vector<std::int16_t> languages) {
        practice::Library library;
        library.path = kDefaultLibrary;
        library.kind = practice::LibraryKind::Scripted;
        library.script.languages = std::move(languages);
        return world.libraries.Put(std::move(library)).script;
    }

    void PutFiles(std::initializer_list<const char16_t*> names) {
        for (const char16_t* name : names)
            world.files.CreateFile(String(u"C:\\Work\\") + name);
    }

    void PutLocFiles(std::initializer_list<const char16_t*> names) {
        practice::RegistryKey& key = world.registry.Create(kLocFiles);
        for (const char16_t* name : names)
            key.Set(name, 1, practice::TextData(u"any.loc"));
    }

    /// The rows of a window that is loaded and put away.
    Lines Listed() {
        Load();
        const Lines rows = LanguageRows();
        form->Unload();
        return rows;
    }
};

const Lines kAutomaticAlone = {" text 403=0"};

} // namespace

TEST_F(SettingsLanguages, WithoutAnySourceThereIsTheAutomaticRowAlone) {
    EXPECT_EQ(Listed(), kAutomaticAlone);
}

TEST_F(SettingsLanguages, TheDefaultLibrarysLanguagesAreListedBehindTheAutomaticRow) {
    PutDefault({1033, 1031});
    EXPECT_EQ(Listed(), (Lines{" text 403=0", "English=1033", "German=1031"}));
}

TEST_F(SettingsLanguages, TheAutomaticRowIsFirstWhateverItIsCalled) {
    TestTexts texts = SettingsTexts();
    texts[403] = u"zzz";
    SpeakTestLanguage(texts);
    PutDefault({1033});
    EXPECT_EQ(Listed(), (Lines{" zzz=0", "English=1033"}));
}

TEST_F(SettingsLanguages, FilesInTheCurrentDirectoryAreListed) {
    PutFiles({u"1031.loc", u"1049.LOC"});
    EXPECT_EQ(Listed(), (Lines{" text 403=0", "German=1031", "Russian=1049"}));
}

TEST_F(SettingsLanguages, FilesInTheProgramsFolderAreNot) {
    world.files.CreateFile(u"C:\\Program Files\\Kestrelmoor\\1031.loc");
    EXPECT_EQ(Listed(), kAutomaticAlone);
    world.files.current_directory = u"C:\\Program Files\\Kestrelmoor";
    EXPECT_EQ(Listed(), (Lines{" text 403=0", "German=1031"}));
}

TEST_F(SettingsLanguages, ThePatternHasNoPathInFrontOfIt) {
    world.calls.Clear();
    Listed();
    EXPECT_EQ(CallsOf({"FindFirstFileW"}), Lines{"FindFirstFileW(\"*.loc\")"});
}

TEST_F(SettingsLanguages, NamesThatAreNoNumberAreSkipped) {
    PutFiles({u"default.loc", u"english.loc", u"0.loc", u"00.loc", u".loc", u"1031a.loc", u"1031.lo", u"1031",
              u"- 5x.loc"});
    EXPECT_EQ(Listed(), kAutomaticAlone);
}

TEST_F(SettingsLanguages, NumbersBeyond16BitsAreSkipped) {
    PutFiles({u"32768.loc", u"70000.loc", u"-32769.loc", u"99999999999.loc", u"1031.loc"});
    EXPECT_EQ(Listed(), (Lines{" text 403=0", "German=1031"}));
}

TEST_F(SettingsLanguages, ALanguageTheSystemHasNoNameForIsShownByItsNumber) {
    PutFiles({u"32767.loc", u"-32768.loc"});
    EXPECT_EQ(Listed(), (Lines{" text 403=0", "text 404: 32767=32767", "text 404: -32768=-32768"}));
}

TEST_F(SettingsLanguages, NothingIsListedTwice) {
    PutDefault({1031});
    PutFiles({u"1031.loc", u"01031.loc", u"1049.loc"});
    PutLocFiles({u"1", u"1031", u"1049"});
    EXPECT_EQ(Listed(), (Lines{" text 403=0", "German=1031", "Russian=1049"}));
}

TEST_F(SettingsLanguages, WhatTheDefaultLibraryTellsTwiceIsListedOnce) {
    PutDefault({1033, 1033, 0, 1031});
    EXPECT_EQ(Listed(), (Lines{" text 403=0", "English=1033", "German=1031"}));
}

TEST_F(SettingsLanguages, AFolderNamedLikeALibraryIsNoFile) {
    world.files.CreateFolder(u"C:\\Work\\1031.loc");
    EXPECT_EQ(Listed(), kAutomaticAlone);
}

TEST_F(SettingsLanguages, AFileIsListedWhateverItsOtherAttributes) {
    world.files.CreateFile(u"C:\\Work\\1031.loc").attributes = practice::file_attribute::kReadOnly;
    EXPECT_EQ(Listed(), (Lines{" text 403=0", "German=1031"}));
}

TEST_F(SettingsLanguages, ADefaultLibraryThatCannotBeAskedToGoIsListedAllTheSame) {
    PutDefault({1033});
    practice::Library library = *world.libraries.Find(kDefaultLibrary);
    library.lacks = {"DllCanUnloadNow"};
    world.libraries.Put(std::move(library));
    modules_left = 1;
    EXPECT_EQ(Listed(), (Lines{" text 403=0", "English=1033"}));
}

TEST_F(SettingsLanguages, TheFirstConfiguredLibraryIsNeverListed) {
    PutLocFiles({u"1031", u"1036", u"1049"});
    EXPECT_EQ(Listed(), (Lines{" text 403=0", "French=1036", "Russian=1049"}));
}

TEST_F(SettingsLanguages, ConfiguredNamesThatAreNoNumberAreSkipped) {
    PutLocFiles({u"1031", u"", u"english", u"0", u"40000", u"1036"});
    EXPECT_EQ(Listed(), (Lines{" text 403=0", "French=1036"}));
}

TEST_F(SettingsLanguages, TheConfiguredLibrariesAreReadOnceAndTheirKeyIsClosed) {
    PutLocFiles({u"1031", u"1036"});
    world.calls.Clear();
    Listed();
    EXPECT_EQ(CallsOf({"RegOpenKeyExW", "RegCloseKey"}),
              (Lines{R"(RegOpenKeyExW("HKEY_LOCAL_MACHINE\Software\Orvane\Kestrelmoor\LocFiles", "131097"))",
                     "RegCloseKey()"}));
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::RegistryKey), 0U);
}

TEST_F(SettingsLanguages, FewerThanTwoConfiguredLibrariesRaiseASubscriptErrorThatNobodyTraps) {
    for (const char16_t* only : {u"", u"1031"}) {
        world.registry.Create(kLocFiles).values.clear();
        if (*only)
            PutLocFiles({only});
        EXPECT_EQ(RaisedNumber([&] { Load(); }), 9) << ToUtf8(only);
        EXPECT_TRUE(Application::Current().Forms().empty());
        EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::RegistryKey), 0U);
    }
}

TEST_F(SettingsLanguages, ConfiguredLibrariesThatCantBeReadAreNoMatter) {
    PutLocFiles({u"1031"});
    world.registry.Create(kLocFiles).refuses_reading = true;
    EXPECT_EQ(Listed(), kAutomaticAlone);
}

TEST_F(SettingsLanguages, ADefaultLibraryThatIsAFolderIsNotLoaded) {
    PutDefault({1033});
    world.files.CreateFolder(kDefaultLibrary);
    world.calls.Clear();
    EXPECT_EQ(Listed(), kAutomaticAlone);
    EXPECT_EQ(world.calls.Count("LoadLibraryExW"), 0U);
}

TEST_F(SettingsLanguages, ADefaultLibraryThatCantBeLookedAtIsNotLoaded) {
    PutDefault({1033});
    world.Fail("GetFileAttributesW", 5);
    EXPECT_EQ(Listed(), kAutomaticAlone);
    EXPECT_EQ(world.calls.Count("LoadLibraryExW"), 0U);
}

TEST_F(SettingsLanguages, ADefaultLibraryThatFailsHasNoLanguages) {
    PutFiles({u"1031.loc"});
    const Lines expected = {" text 403=0", "German=1031"};
    PutDefault({1033}).class_result = -2147467259;
    EXPECT_EQ(Listed(), expected);
    PutDefault({1033}).create_result = -2147467259;
    EXPECT_EQ(Listed(), expected);
    PutDefault({1033});
    world.Fail("LoadLibraryExW", 126);
    EXPECT_EQ(Listed(), expected);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(SettingsLanguages, ADefaultLibraryWithoutLanguagesAddsNone) {
    PutDefault({});
    EXPECT_EQ(Listed(), kAutomaticAlone);
}

TEST_F(SettingsLanguages, ADefaultLibraryThatTellsTheAutomaticChoiceAloneAddsNone) {
    PutDefault({0});
    EXPECT_EQ(Listed(), kAutomaticAlone);
}

TEST_F(SettingsLanguages, ALibraryThatCountsFromZeroLosesItsFirstLanguage) {
    PutDefault({1033, 1031}).first_index = 0;
    EXPECT_EQ(Listed(), (Lines{" text 403=0", "German=1031"}));
}

TEST_F(SettingsLanguages, ALibraryThatCountsFromZeroKeepsTheOthersWhateverItsFirst) {
    PutDefault({0, 1033, 1031}).first_index = 0;
    EXPECT_EQ(Listed(), (Lines{" text 403=0", "English=1033", "German=1031"}));
    PutDefault({1033, 1033, 1031, 1033, 0}).first_index = 0;
    EXPECT_EQ(Listed(), (Lines{" text 403=0", "English=1033", "German=1031"}));
}

TEST_F(SettingsLanguages, TheDefaultLibraryIsLoadedApartAndPutAwayAgain) {
    PutDefault({1033});
    world.calls.Clear();
    Listed();
    EXPECT_EQ(CallsOf({"GetFileAttributesW", "LoadLibraryExW", "FreeLibrary"}).size(), 3U);
    EXPECT_EQ(CallsOf({"GetFileAttributesW", "LoadLibraryExW"}),
              (Lines{R"(GetFileAttributesW("C:\Program Files\Kestrelmoor\default.loc"))",
                     R"(LoadLibraryExW("C:\Program Files\Kestrelmoor\default.loc", "0"))"}));
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Module), 0U);
    EXPECT_EQ(gLocLibHandle, 0U);
}

TEST_F(SettingsLanguages, ANameIsAskedForByItsLengthFirst) {
    PutDefault({1033});
    world.calls.Clear();
    Listed();
    EXPECT_EQ(CallsOf({"GetLocaleInfoW"}),
              (Lines{R"(GetLocaleInfoW("1033", "2", "0"))", R"(GetLocaleInfoW("1033", "2", "8"))"}));
}

TEST_F(SettingsLanguages, TheStoredLanguageIsTheSelection) {
    PutDefault({1031, 1033});
    gLangID = 1031;
    Load();
    EXPECT_EQ(Languages().ListIndex(), 2);
    form->Unload();
    gLangID = 0;
    Load();
    EXPECT_EQ(Languages().ListIndex(), 0);
}

TEST_F(SettingsLanguages, TheSelectionStaysOnItsRowWhenLaterOnesGoAheadOfIt) {
    PutDefault({1049, 1031, 1033});
    gLangID = 1049;
    Load();
    ASSERT_EQ(LanguageRows(), (Lines{" text 403=0", "English=1033", "German=1031", "Russian=1049"}));
    EXPECT_EQ(Languages().ListIndex(), 3);
}

TEST_F(SettingsLanguages, ALanguageThatNobodyListsLeavesNoSelection) {
    PutDefault({1033});
    gLangID = 1049;
    Load();
    EXPECT_EQ(Languages().ListIndex(), -1);
    EXPECT_FALSE(OkEnabled());
}

TEST_F(SettingsLanguages, ChoosingTheStoredLanguageIsNoChange) {
    PutDefault({1033});
    gLangID = 1033;
    Open();
    user.ChooseRow(Languages(), 1);
    EXPECT_FALSE(OkEnabled());
}

TEST_F(SettingsLanguages, ChoosingAnotherIsAChangeThatChoosingTheFirstOneAgainDoesntUndo) {
    PutDefault({1033});
    gLangID = 1033;
    Open();
    user.ChooseRow(Languages(), 0);
    EXPECT_TRUE(OkEnabled());
    user.ChooseRow(Languages(), 1);
    EXPECT_TRUE(OkEnabled());
}

TEST_F(SettingsLanguages, TheChoiceIsNotAppliedByTheWindowItself) {
    PutDefault({1031, 1033});
    gLangID = 1033;
    Open();
    user.ChooseRow(Languages(), 2);
    EXPECT_EQ(gLangID, 1033);
    world.calls.Clear();
    Click(u"cmdOK");
    EXPECT_EQ(gLangID, 1031);
    EXPECT_EQ(world.calls.Count("LoadLibraryExW"), 0U);
}

} // namespace kestrelmoor::tests
