#include "shell/settings.h"

#include "shell/program_state.h"
#include "tests/native/support/program_test.h"

namespace kestrelmoor::tests {

namespace {

using Data = std::vector<std::uint8_t>;

constexpr char16_t kSettingsKey[] = u"HKEY_CURRENT_USER\\Software\\Orvane\\Kestrelmoor";
constexpr char16_t kRunKey[] = u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run";

constexpr std::uint32_t kString = 1;
constexpr std::uint32_t kExpandString = 2;
constexpr std::uint32_t kBinary = 3;
constexpr std::uint32_t kNumber = 4;
constexpr std::uint32_t kStringList = 7;

/// Begins with an empty key of the program's and an empty Run key.
class Settings : public ProgramTest {
  protected:
    Settings() {
        Key().values.clear();
        RunKey().values.clear();
    }

    practice::RegistryKey& Key() { return world.registry.Create(kSettingsKey); }
    practice::RegistryKey& RunKey() { return world.registry.Create(kRunKey); }

    void Put(const char16_t* sName, std::uint32_t nType, Data data) { Key().Set(sName, nType, data); }
    void PutServers(const StringList& names) { Put(u"Servers", kStringList, practice::TextsData(names)); }

    /// What is stored under a name: its bytes, none when it is not there.
    Data Bytes(const char16_t* sName) {
        const practice::RegistryValue* const value = Key().Find(sName);
        return value ? value->data : Data{};
    }
    StringList StoredNames() {
        StringList names;
        for (const practice::RegistryValue& value : Key().values)
            names.push_back(value.name);
        return names;
    }

    /// The settings as they are without any stored value.
    static void SetDefaults() {
        gServerCount = 0;
        gReminderTime = 1209600;
        gSyncLocal = true;
        gLangID = 0;
        gAutoStart = false;
    }
    static void SetServers() {
        gServers = Array<String>(1, {u"\\\\ARCHIVE", u"PRACTICE"});
        gServerCount = 2;
        gActiveBits = Array<std::uint8_t>(1, {2});
    }
};

TEST_F(Settings, ThereAreDefaultsForAllThatIsNotStored) {
    LoadSettings();
    EXPECT_EQ(gServerCount, 0);
    EXPECT_EQ(gReminderTime, 1209600);
    EXPECT_TRUE(gSyncLocal);
    EXPECT_FALSE(gAutoStart);
    EXPECT_EQ(LoadLangID(), 0);
}

TEST_F(Settings, StoredValuesAreLoaded) {
    PutServers({u"\\\\ARCHIVE", u"PRACTICE"});
    Put(u"Active", kBinary, {2});
    Put(u"ReminderTime", kNumber, {0x80, 0x51, 0x01, 0x00});
    Put(u"Options", kNumber, {0, 0, 0, 0});
    RunKey().Set(u"Kestrelmoor", kString, practice::TextData(u"anything"));
    LoadSettings();
    EXPECT_EQ(gServers, Array<String>(1, {u"\\\\ARCHIVE", u"PRACTICE"}));
    EXPECT_EQ(gServerCount, 2);
    EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, {2, 0}));
    EXPECT_FALSE(GetBit(0));
    EXPECT_TRUE(GetBit(1));
    EXPECT_EQ(gReminderTime, 86400);
    EXPECT_FALSE(gSyncLocal);
    EXPECT_TRUE(gAutoStart);
}

TEST_F(Settings, LoadingReadsInOrderAndClosesBothKeys) {
    PutServers({u"PRACTICE"});
    world.calls.Clear();
    LoadSettings();
    EXPECT_EQ(
        CallsOf({"RegOpenKeyExW", "RegCloseKey"}),
        (Lines{R"(RegOpenKeyExW("HKEY_CURRENT_USER\Software\Orvane\Kestrelmoor", "131097"))", "RegCloseKey()",
               R"(RegOpenKeyExW("HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Run", )"
               R"("131097"))",
               "RegCloseKey()"}));
    EXPECT_EQ(CallsOf({"RegQueryValueExW"}),
              (Lines{R"(RegQueryValueExW("Servers"))", R"(RegQueryValueExW("Servers"))",
                     R"(RegQueryValueExW("Active"))", R"(RegQueryValueExW("ReminderTime"))",
                     R"(RegQueryValueExW("Options"))", R"(RegQueryValueExW("Kestrelmoor"))"}));
}

TEST_F(Settings, WithoutServersTheActiveOnesAreNotRead) {
    LoadSettings();
    EXPECT_EQ(CallsOf({"RegQueryValueExW"}),
              (Lines{R"(RegQueryValueExW("Servers"))", R"(RegQueryValueExW("ReminderTime"))",
                     R"(RegQueryValueExW("Options"))", R"(RegQueryValueExW("Kestrelmoor"))"}));
}

TEST_F(Settings, ValuesOfTheWrongTypeHaveTheirDefaults) {
    Put(u"ReminderTime", kString, practice::TextData(u"86400"));
    Put(u"Options", kString, practice::TextData(u"0"));
    Put(u"Servers", kString, practice::TextData(u"PRACTICE"));
    Put(u"LangID", kString, practice::TextData(u"1031"));
    LoadSettings();
    EXPECT_EQ(gReminderTime, 1209600);
    EXPECT_TRUE(gSyncLocal);
    EXPECT_EQ(gServerCount, 0);
    EXPECT_EQ(LoadLangID(), 0);
}

TEST_F(Settings, OnlyTheBitOfTheOptionsWithValueTwoCounts) {
    Put(u"Options", kNumber, {0xFD, 0xFF, 0xFF, 0xFF});
    LoadSettings();
    EXPECT_FALSE(gSyncLocal);
    Put(u"Options", kNumber, {0x02, 0, 0, 0});
    LoadSettings();
    EXPECT_TRUE(gSyncLocal);
}

TEST_F(Settings, ServersPastTheEndOfTheActiveBytesAreInactive) {
    PutServers({u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9"});
    Put(u"Active", kBinary, {0xFF});
    LoadSettings();
    ASSERT_EQ(gServerCount, 9);
    EXPECT_TRUE(GetBit(7));
    EXPECT_FALSE(GetBit(8));
    EXPECT_EQ(gActiveBits.UpperBound(), 9);
}

TEST_F(Settings, ActiveBytesBeyondTheServersAreCut) {
    PutServers({u"PRACTICE"});
    Put(u"Active", kBinary, {1, 2, 3});
    LoadSettings();
    EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, {1}));
}

TEST_F(Settings, WithoutActiveBytesAllServersAreListedAndNoneIsActive) {
    PutServers({u"\\\\ARCHIVE", u"PRACTICE"});
    LoadSettings();
    EXPECT_EQ(gServerCount, 2);
    EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, {0, 0}));
}

TEST_F(Settings, ActiveBytesOfTheWrongTypeMakeNoServerActive) {
    PutServers({u"PRACTICE"});
    Put(u"Active", kNumber, {1, 0, 0, 0});
    gActiveBits = Array<std::uint8_t>(1, {1});
    LoadSettings();
    EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, {0}));
}

TEST_F(Settings, AServerListOfTwoFinalNulsIsAnEmptyOne) {
    Put(u"Servers", kStringList, {0, 0, 0, 0});
    gServerCount = 3;
    LoadSettings();
    EXPECT_EQ(gServerCount, 0);
}

TEST_F(Settings, AServerListOfTheFinalNulAloneRaisesAnInvalidArgument) {
    Put(u"Servers", kStringList, {0, 0});
    EXPECT_EQ(RaisedNumber([] { LoadSettings(); }), 5);
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::RegistryKey), 0U);
}

TEST_F(Settings, AServerListThatIsNotThereLeavesTheOneInMemory) {
    SetServers();
    LoadSettings();
    EXPECT_EQ(gServerCount, 2);
    EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, {0, 0}));
}

TEST_F(Settings, AServerListOfAnotherKindLeavesTheOneInMemory) {
    SetServers();
    Put(u"Servers", kString, practice::TextData(u"\\\\SPARE"));
    LoadSettings();
    EXPECT_EQ(gServerCount, 2);
    EXPECT_EQ(gServers, Array<String>(1, {u"\\\\ARCHIVE", u"PRACTICE"}));
}

TEST_F(Settings, AKeyThatCannotBeOpenedGivesDefaultsAndLeavesTheServers) {
    SetServers();
    RunKey().Set(u"Kestrelmoor", kString, practice::TextData(u"x"));
    world.Fail("RegOpenKeyExW", 5, 1);
    LoadSettings();
    EXPECT_EQ(gReminderTime, 1209600);
    EXPECT_TRUE(gSyncLocal);
    EXPECT_EQ(gServerCount, 2);
    EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, {2}));
    EXPECT_TRUE(gAutoStart);
}

TEST_F(Settings, ARunKeyThatCannotBeOpenedIsNoStartAtLogon) {
    gAutoStart = true;
    world.Fail("RegOpenKeyExW", 5, 2);
    LoadSettings();
    EXPECT_FALSE(gAutoStart);
}

TEST_F(Settings, TheRunValueCountsWhenItIsText) {
    RunKey().Set(u"Kestrelmoor", kExpandString, practice::TextData(u"x"));
    LoadSettings();
    EXPECT_TRUE(gAutoStart);
    RunKey().Set(u"Kestrelmoor", kNumber, {1, 0, 0, 0});
    LoadSettings();
    EXPECT_FALSE(gAutoStart);
}

TEST_F(Settings, ServersAreAsManyAsSixteenBitsCanCount) {
    StringList names(32767, u"A");
    PutServers(names);
    LoadSettings();
    EXPECT_EQ(gServerCount, 32767);
    names.push_back(u"A");
    PutServers(names);
    EXPECT_EQ(RaisedNumber(LoadSettings), 6);
}

TEST_F(Settings, ALanguageNumberIsLoadedAsASignedOneOfSixteenBits) {
    Put(u"LangID", kNumber, {0x07, 0x04, 0, 0});
    EXPECT_EQ(LoadLangID(), 1031);
    Put(u"LangID", kNumber, {0x00, 0x83, 0xFF, 0xFF});
    EXPECT_EQ(LoadLangID(), -32000);
    Put(u"LangID", kNumber, {0x00, 0x80, 0xFF, 0xFF});
    EXPECT_EQ(LoadLangID(), -32768);
    Put(u"LangID", kNumber, {0xFF, 0x7F, 0, 0});
    EXPECT_EQ(LoadLangID(), 32767);
}

TEST_F(Settings, ALanguageNumberBeyondSixteenBitsIsTheAutomaticOne) {
    Put(u"LangID", kNumber, {0x00, 0x80, 0, 0});
    EXPECT_EQ(LoadLangID(), 0);
    Put(u"LangID", kNumber, {0xFF, 0x7F, 0xFF, 0xFF});
    EXPECT_EQ(LoadLangID(), 0);
}

TEST_F(Settings, AKeyThatCannotBeOpenedHoldsNoLanguageNumber) {
    Put(u"LangID", kNumber, {0x07, 0x04, 0, 0});
    world.Fail("RegOpenKeyExW", 5);
    EXPECT_EQ(LoadLangID(), 0);
}

TEST_F(Settings, SavingDefaultsLeavesAnEmptyKey) {
    Put(u"Servers", kStringList, practice::TextsData({u"PRACTICE"}));
    Put(u"Active", kBinary, {1});
    Put(u"ReminderTime", kNumber, {1, 0, 0, 0});
    Put(u"Options", kNumber, {0, 0, 0, 0});
    Put(u"LangID", kNumber, {1, 0, 0, 0});
    RunKey().Set(u"Kestrelmoor", kString, practice::TextData(u"x"));
    SetDefaults();
    SaveSettings();
    EXPECT_EQ(StoredNames(), StringList{});
    EXPECT_TRUE(RunKey().values.empty());
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(Settings, SavingStoresWhatIsNotTheDefault) {
    SetServers();
    gReminderTime = 86400;
    gSyncLocal = false;
    gLangID = 1031;
    gAutoStart = true;
    SaveSettings();
    EXPECT_EQ(StoredNames(), (StringList{u"Servers", u"Active", u"ReminderTime", u"Options", u"LangID"}));
    EXPECT_EQ(Bytes(u"Servers"), practice::TextsData({u"\\\\ARCHIVE", u"PRACTICE"}));
    EXPECT_EQ(Key().Find(u"Servers")->type, kStringList);
    EXPECT_EQ(Bytes(u"Active"), Data{2});
    EXPECT_EQ(Key().Find(u"Active")->type, kBinary);
    EXPECT_EQ(Bytes(u"ReminderTime"), (Data{0x80, 0x51, 0x01, 0x00}));
    EXPECT_EQ(Bytes(u"Options"), (Data{0, 0, 0, 0}));
    EXPECT_EQ(Bytes(u"LangID"), (Data{0x07, 0x04, 0, 0}));
    ASSERT_TRUE(RunKey().Find(u"Kestrelmoor"));
    EXPECT_EQ(RunKey().Find(u"Kestrelmoor")->type, kString);
    EXPECT_EQ(RunKey().Find(u"Kestrelmoor")->data,
              practice::TextData(u"C:\\Program Files\\Kestrelmoor\\Moorlink.exe"));
}

TEST_F(Settings, ALanguageNumberIsStoredSignExtended) {
    SetDefaults();
    gLangID = -32000;
    SaveSettings();
    EXPECT_EQ(Bytes(u"LangID"), (Data{0x00, 0x83, 0xFF, 0xFF}));
}

TEST_F(Settings, AProgramInARootIsRunFromThere) {
    SetDefaults();
    gAutoStart = true;
    world.machine.program_folder = u"D:\\";
    SaveSettings();
    ASSERT_TRUE(RunKey().Find(u"Kestrelmoor"));
    EXPECT_EQ(RunKey().Find(u"Kestrelmoor")->data, practice::TextData(u"D:\\Moorlink.exe"));
}

TEST_F(Settings, SavingWritesInOrderAndClosesTheFirstKeyAheadOfTheRunKey) {
    SetServers();
    gReminderTime = 1209600;
    gSyncLocal = true;
    world.calls.Clear();
    SaveSettings();
    EXPECT_EQ(
        world.calls.Names(),
        (Lines{"RegCreateKeyExW", "RegSetValueExW", "RegSetValueExW", "RegDeleteValueW", "RegDeleteValueW",
               "RegDeleteValueW", "RegCloseKey", "RegCreateKeyExW", "RegDeleteValueW", "RegCloseKey"}));
    EXPECT_EQ(CallsOf({"RegCreateKeyExW", "RegDeleteValueW"}),
              (Lines{R"(RegCreateKeyExW("HKEY_CURRENT_USER\Software\Orvane\Kestrelmoor", "131078"))",
                     R"(RegDeleteValueW("ReminderTime"))", R"(RegDeleteValueW("Options"))",
                     R"(RegDeleteValueW("LangID"))",
                     R"(RegCreateKeyExW("HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Run", )"
                     R"("131078"))",
                     R"(RegDeleteValueW("Kestrelmoor"))"}));
}

TEST_F(Settings, AValueThatCannotBeSavedIsToldAndTheOthersAreSavedAllTheSame) {
    SetServers();
    gReminderTime = 86400;
    gSyncLocal = false;
    gLangID = 1031;
    gAutoStart = true;
    world.Fail("RegSetValueExW", 5, 1);
    world.Fail("RegSetValueExW", 53, 3);
    SaveSettings();
    EXPECT_EQ(StoredNames(), (StringList{u"Active", u"Options", u"LangID"}));
    EXPECT_TRUE(RunKey().Find(u"Kestrelmoor"));
    EXPECT_EQ(Boxes(), (std::vector<ShownBox>{Exclamation("message 102: message 15: 5, system 5"),
                                              Exclamation("message 102: message 15: 53, system 53")}));
    EXPECT_EQ(gReminderTime, 86400);
    EXPECT_EQ(gServerCount, 2);
}

TEST_F(Settings, EachValueThatCannotBeRemovedIsTold) {
    SetDefaults();
    world.Fail("RegDeleteValueW", 5, 0);
    SaveSettings();
    EXPECT_EQ(Boxes(), std::vector<ShownBox>(6, Exclamation("message 102: message 15: 5, system 5")));
}

TEST_F(Settings, AKeyThatCannotBeWrittenIsSkippedWithoutAWordAndTheRunKeyIsWritten) {
    SetDefaults();
    gLangID = 1031;
    gAutoStart = true;
    Key().refuses_writing = true;
    SaveSettings();
    EXPECT_EQ(StoredNames(), StringList{});
    EXPECT_TRUE(RunKey().Find(u"Kestrelmoor"));
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(Settings, ARunKeyThatCannotBeWrittenEndsTheSavingWithoutAWord) {
    SetDefaults();
    gAutoStart = true;
    gLangID = 1031;
    RunKey().refuses_writing = true;
    SaveSettings();
    EXPECT_EQ(StoredNames(), StringList{u"LangID"});
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(Settings, SavingMakesTheKeysThatAreNotThere) {
    world.registry = practice::RegistryTree();
    SetDefaults();
    gLangID = 1031;
    gAutoStart = true;
    SaveSettings();
    EXPECT_TRUE(world.registry.FindValue(kSettingsKey, u"LangID"));
    EXPECT_TRUE(world.registry.FindValue(kRunKey, u"Kestrelmoor"));
}

TEST_F(Settings, WhatIsSavedIsLoadedAgain) {
    SetServers();
    gReminderTime = 3600;
    gSyncLocal = false;
    gLangID = 1031;
    gAutoStart = true;
    SaveSettings();
    gServers = {};
    gServerCount = 0;
    gActiveBits = {};
    SetDefaults();
    LoadSettings();
    EXPECT_EQ(gServers, Array<String>(1, {u"\\\\ARCHIVE", u"PRACTICE"}));
    EXPECT_FALSE(GetBit(0));
    EXPECT_TRUE(GetBit(1));
    EXPECT_EQ(gReminderTime, 3600);
    EXPECT_FALSE(gSyncLocal);
    EXPECT_TRUE(gAutoStart);
    EXPECT_EQ(LoadLangID(), 1031);
}

TEST_F(Settings, ABitIsSetAndClearedWithoutItsNeighbours) {
    gActiveBits = Array<std::uint8_t>(1, {0, 0xFF});
    SetBit(0, true);
    SetBit(7, true);
    SetBit(9, false);
    EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, {0x81, 0xFD}));
    EXPECT_TRUE(GetBit(7));
    EXPECT_FALSE(GetBit(6));
    EXPECT_FALSE(GetBit(9));
    EXPECT_TRUE(GetBit(15));
}

TEST_F(Settings, ABitBeyondTheActiveBytesRaisesASubscriptError) {
    gActiveBits = Array<std::uint8_t>(1, {0});
    EXPECT_EQ(RaisedNumber([] { GetBit(8); }), 9);
    EXPECT_EQ(RaisedNumber([] { SetBit(8, true); }), 9);
}

} // namespace

} // namespace kestrelmoor::tests
