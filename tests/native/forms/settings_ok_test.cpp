#include "shell/settings.h"
#include "tests/native/forms/settings_window.h"

namespace kestrelmoor::tests {

namespace {

constexpr char16_t kSettingsKey[] = u"HKEY_CURRENT_USER\\Software\\Orvane\\Kestrelmoor";
constexpr char16_t kRunKey[] = u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run";

class SettingsOk : public SettingsWindow {
  protected:
    practice::RegistryKey& Key() { return world.registry.Create(kSettingsKey); }

    /// Everything in the program's state that the window can change.
    static void SetOtherState() {
        Configure({u"ARCHIVE", u"PRACTICE"}, {true, false});
        gSyncLocal = false;
        gAutoStart = true;
        gReminderTime = 172800;
        gLangID = 1033;
    }
    static void ExpectOtherState() {
        EXPECT_EQ(Servers(), (Lines{"* ARCHIVE", "PRACTICE"}));
        EXPECT_EQ(gActiveBits.Elements(), (std::vector<std::uint8_t>{1, 0}));
        EXPECT_FALSE(gSyncLocal);
        EXPECT_TRUE(gAutoStart);
        EXPECT_EQ(gReminderTime, 172800);
        EXPECT_EQ(gLangID, 1033);
    }

    /// Changes everything on the screen, permanence included.
    void ChangeAll() {
        Click(u"chkLocalPass");
        Click(u"chkRemind");
        TypeDays(u"7");
        user.ToggleRow(List(), 1);
        AddName(u"ZEBRA");
        Leave();
        user.ChooseRow(Languages(), 0);
        Click(u"chkPermanent");
    }

    void OkWithDays(const char16_t* text) {
        Open();
        Days().SetText(text);
        Click(u"cmdOK");
        EXPECT_TRUE(form->IsUnloaded());
    }

    void OkWithServers(std::size_t count) {
        StringList servers;
        for (std::size_t i = 0; i < count; ++i)
            servers.push_back(FromUtf8("S" + std::to_string(1000 + i)));
        Configure(servers, std::vector<bool>(count, true));
        Open();
        Click(u"chkRemind");
        Click(u"cmdOK");
    }
};

} // namespace

TEST_F(SettingsOk, TakesBothCheckBoxesOver) {
    for (const bool on : {false, true}) {
        gSyncLocal = gAutoStart = !on;
        Open();
        Click(u"chkLocalPass");
        Click(u"chkRemind");
        Click(u"cmdOK");
        EXPECT_EQ(gSyncLocal, on);
        EXPECT_EQ(gAutoStart, on);
        EXPECT_TRUE(form->IsUnloaded());
    }
}

TEST_F(SettingsOk, TakesTheDaysOverAsSeconds) {
    Open();
    TypeDays(u"7");
    Click(u"cmdOK");
    EXPECT_EQ(gReminderTime, 604800);
}

TEST_F(SettingsOk, EmptyDaysAreNoLeadTime) {
    Open();
    ClearDays();
    Click(u"cmdOK");
    EXPECT_EQ(gReminderTime, 0);
}

TEST_F(SettingsOk, ATimeThatIsNoWholeNumberOfDaysLosesTheRest) {
    gReminderTime = 100000;
    Open();
    ASSERT_EQ(Days().Text(), u"1");
    Click(u"chkRemind");
    Click(u"cmdOK");
    EXPECT_EQ(gReminderTime, 86400);
}

TEST_F(SettingsOk, FractionsOfDaysCount) {
    OkWithDays(u"1.5");
    EXPECT_EQ(gReminderTime, 129600);
    OkWithDays(u"0.00001");
    EXPECT_EQ(gReminderTime, 1);
    OkWithDays(u"3 days");
    EXPECT_EQ(gReminderTime, 259200);
    OkWithDays(u"-1");
    EXPECT_EQ(gReminderTime, -86400);
}

TEST_F(SettingsOk, ATimeThatDoesntFitKeepsTheOneBefore) {
    gReminderTime = 172800;
    Open();
    TypeDays(u"24856"); // 2147558400 seconds
    user.Press(key::kReturn);
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(gReminderTime, 172800);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(SettingsOk, TheLongestTimeThatFitsIsTaken) {
    Open();
    TypeDays(u"24855");
    user.Press(key::kReturn);
    EXPECT_EQ(gReminderTime, 2147472000);
}

TEST_F(SettingsOk, StoresTheServersInTheOrderOfTheListWithTheirChecks) {
    Configure({u"ZEBRA", u"ARCHIVE", u"PRACTICE"}, {true, false, true});
    Open();
    user.ToggleRow(List(), 0);
    user.ToggleRow(List(), 1);
    Click(u"cmdOK");
    EXPECT_EQ(Servers(), (Lines{"* ARCHIVE", "PRACTICE", "* ZEBRA"}));
    EXPECT_EQ(gServers, Array<String>(1, {u"ARCHIVE", u"PRACTICE", u"ZEBRA"}));
    EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, {5}));
}

TEST_F(SettingsOk, EightServersHaveOneByteOfBitsAndNineHaveTwo) {
    OkWithServers(1);
    EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, {0x01}));
    OkWithServers(8);
    EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, {0xFF}));
    OkWithServers(9);
    EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, {0xFF, 0x01}));
    OkWithServers(16);
    EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, {0xFF, 0xFF}));
    OkWithServers(17);
    EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, {0xFF, 0xFF, 0x01}));
}

TEST_F(SettingsOk, WithAllServersRemovedBothArraysAreErased) {
    Configure({u"ARCHIVE"}, {true});
    Open();
    user.ChooseRow(List(), 0);
    Click(u"cmdRemServer");
    Click(u"cmdOK");
    EXPECT_EQ(gServerCount, 0);
    EXPECT_FALSE(gServers.HasStorage());
    EXPECT_FALSE(gActiveBits.HasStorage());
}

TEST_F(SettingsOk, ClosesAnOpenEntryFirst) {
    Open();
    AddName(u"PRACTICE");
    Click(u"cmdOK");
    EXPECT_EQ(Servers(), Lines{"* PRACTICE"});
}

TEST_F(SettingsOk, EnterInAnOpenEntryStoresThePlaceholderAsAServer) {
    Open();
    AddName(u"PRACTICE");
    user.Press(key::kReturn);
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(Servers(), Lines{"* ..."});
}

TEST_F(SettingsOk, StoresTheChosenLanguage) {
    gLangID = 1033;
    Open();
    user.ChooseRow(Languages(), 0);
    Click(u"cmdOK");
    EXPECT_EQ(gLangID, 0);
    Open();
    user.ChooseRow(Languages(), 1);
    Click(u"cmdOK");
    EXPECT_EQ(gLangID, 1033);
}

TEST_F(SettingsOk, ALanguageThatNobodyListsBecomesTheAutomaticOne) {
    gLangID = 1049;
    Open();
    EXPECT_EQ(Languages().ListIndex(), -1);
    Click(u"chkRemind");
    Click(u"cmdOK");
    EXPECT_EQ(gLangID, 0);
}

TEST_F(SettingsOk, WithoutPermanenceTheRegistryIsNotTouched) {
    Open();
    Click(u"chkRemind");
    world.calls.Clear();
    Click(u"cmdOK");
    EXPECT_EQ(CallsOf({"RegCreateKeyExW", "RegOpenKeyExW", "RegSetValueExW", "RegDeleteValueW"}), Lines{});
}

TEST_F(SettingsOk, WithPermanenceTheNewStateIsSaved) {
    SetOtherState();
    Open();
    ChangeAll();
    Click(u"cmdOK");
    EXPECT_TRUE(form->IsUnloaded());
    ASSERT_TRUE(Key().Find(u"Servers"));
    EXPECT_EQ(Key().Find(u"Servers")->data, practice::TextsData({u"ARCHIVE", u"PRACTICE", u"ZEBRA"}));
    EXPECT_EQ(Key().Find(u"Active")->data, (std::vector<std::uint8_t>{7}));
    EXPECT_EQ(Key().Find(u"ReminderTime")->data, practice::NumberData(604800));
    EXPECT_EQ(Key().Find(u"Options"), nullptr);
    EXPECT_EQ(Key().Find(u"LangID"), nullptr);
    EXPECT_EQ(world.registry.FindValue(kRunKey, u"Kestrelmoor"), nullptr);
}

TEST_F(SettingsOk, WhatTheWatchHasNarrowedIsKeptForThisRunOnly) {
    gTargetsNarrowed = gForceWindow = true;
    Open();
    Click(u"chkRemind");
    world.calls.Clear();
    Click(u"cmdOK");
    EXPECT_TRUE(gAutoStart);
    EXPECT_EQ(CallsOf({"RegCreateKeyExW"}), Lines{});
}

TEST_F(SettingsOk, ARegistryThatRefusesEveryValueIsToldForEachAndTheWindowClosesAllTheSame) {
    SetOtherState();
    gLangID = 0;
    Open();
    TypeDays(u"7");
    user.ChooseRow(Languages(), 1);
    Click(u"chkPermanent");
    world.Fail("RegSetValueExW", 5, 0);
    Click(u"cmdOK");
    // Servers, Active, ReminderTime, Options, LangID and the start at logon.
    EXPECT_EQ(Boxes(), std::vector<ShownBox>(6, Exclamation("message 102: message 15: 5, system 5")));
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(gReminderTime, 604800);
    EXPECT_EQ(gLangID, 1033);
}

TEST_F(SettingsOk, ARegistryThatRefusesEveryRemovalIsToldForEachToo) {
    Open();
    Click(u"chkPermanent");
    world.Fail("RegDeleteValueW", 5, 0);
    Click(u"cmdOK");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>(6, Exclamation("message 102: message 15: 5, system 5")));
    EXPECT_TRUE(form->IsUnloaded());
}

TEST_F(SettingsOk, ARegistryThatCantBeOpenedIsNotTold) {
    Open();
    Click(u"chkPermanent");
    world.Fail("RegCreateKeyExW", 5, 0);
    Click(u"cmdOK");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_TRUE(form->IsUnloaded());
}

TEST_F(SettingsOk, CancelLeavesEverythingAsItWas) {
    SetOtherState();
    for (const bool by_key : {false, true}) {
        Open();
        ChangeAll();
        world.calls.Clear();
        if (by_key)
            user.Press(key::kEscape);
        else
            Click(u"cmdCancel");
        EXPECT_TRUE(form->IsUnloaded());
        ExpectOtherState();
        EXPECT_EQ(CallsOf({"RegCreateKeyExW", "RegSetValueExW", "RegDeleteValueW"}), Lines{});
    }
}

TEST_F(SettingsOk, TheCloseBoxLeavesEverythingAsItWas) {
    SetOtherState();
    Open();
    ChangeAll();
    user.CloseWindow(*form);
    EXPECT_TRUE(form->IsUnloaded());
    ExpectOtherState();
}

TEST_F(SettingsOk, EveryOpeningStartsFromTheStateAndNoEditSurvivesACancel) {
    SetOtherState();
    Open();
    ChangeAll();
    Click(u"cmdCancel");
    Open();
    EXPECT_EQ(Rows(), (Lines{"* ARCHIVE", "PRACTICE"}));
    EXPECT_EQ(Days().Text(), u"2");
    EXPECT_EQ(Check(u"chkLocalPass").Value(), 0);
    EXPECT_EQ(Check(u"chkRemind").Value(), 1);
    EXPECT_EQ(Check(u"chkPermanent").Value(), 0);
    EXPECT_FALSE(OkEnabled());
}

TEST_F(SettingsOk, EachCheckBoxIsAChange) {
    for (const char16_t* name : {u"chkLocalPass", u"chkRemind", u"chkPermanent"}) {
        Open();
        Click(name);
        EXPECT_TRUE(OkEnabled()) << ToUtf8(name);
        Click(name);
        EXPECT_TRUE(OkEnabled()) << ToUtf8(name);
        form->Unload();
    }
}

TEST_F(SettingsOk, TheDaysArentHeldAgainstAnyLimitHere) {
    Open();
    Days().SetText(u"500");
    At(u"cmdOK").SetFocus();
    user.Press(key::kReturn);
    EXPECT_EQ(gReminderTime, 43200000);
}

} // namespace kestrelmoor::tests
