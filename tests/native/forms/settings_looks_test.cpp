#include "tests/native/forms/settings_window.h"
#include "window_services/theme_colours.h"

namespace kestrelmoor::tests {

namespace {

class SettingsLooks : public SettingsWindow {
  protected:
    /// A visual style with colours of its own.
    void PutTheme() {
        practice::Appearance& appearance = world.machine.appearance;
        appearance.app_themed = appearance.theme_active = true;
        appearance.theme_colours = {{15, 0x0F0F0F}, {18, 0x121212}, {5, 0xFFFFFF}, {8, 0x080808}};
        UpdateThemeState();
        ASSERT_TRUE(gThemed);
        world.calls.Clear();
    }

    void ExpectColours(StringView name, Colour back, Colour fore) {
        EXPECT_EQ(At(name).BackColor(), back) << ToUtf8(name);
        EXPECT_EQ(At(name).ForeColor(), fore) << ToUtf8(name);
    }

    bool CuesShown() { return CaptionOf(u"lblLang") == "&text 401"; }
};

} // namespace

TEST_F(SettingsLooks, WithoutAStyleEveryColourFollowsTheSystem) {
    Load();
    EXPECT_EQ(form->BackColor(), 0x8000000FU);
    EXPECT_EQ(form->ForeColor(), 0x80000012U);
    for (const char16_t* name : {u"chkLocalPass", u"chkRemind", u"chkPermanent", u"fraNetPwd"})
        ExpectColours(name, 0x8000000F, 0x80000012);
    for (const char16_t* name : {u"cbLang", u"lstServers", u"txtRemind", u"ucAddComp"})
        ExpectColours(name, 0x80000005, 0x80000008);
    EXPECT_EQ(EntryBox().BackColor(), 0xBFFFFFU);
    EXPECT_EQ(EntryBox().ForeColor(), 0x80000008U);
}

TEST_F(SettingsLooks, WithAStyleEveryKindHasItsColours) {
    PutTheme();
    Load();
    EXPECT_EQ(form->BackColor(), 0x0F0F0FU);
    EXPECT_EQ(form->ForeColor(), 0x121212U);
    for (const char16_t* name : {u"chkLocalPass", u"chkRemind", u"chkPermanent", u"fraNetPwd"})
        ExpectColours(name, 0x0F0F0F, 0x121212);
    for (const char16_t* name : {u"lblRemind", u"lblLang"})
        ExpectColours(name, 0x8000000F, 0x121212);
    for (const char16_t* name :
         {u"cmdHelp", u"cmdOK", u"cmdCancel", u"cmdAbout", u"cmdAddServer", u"cmdRemServer"})
        ExpectColours(name, 0x0F0F0F, 0x80000012);
    for (const char16_t* name : {u"cbLang", u"lstServers", u"txtRemind", u"ucAddComp"})
        ExpectColours(name, 0xFFFFFF, 0x080808);
}

TEST_F(SettingsLooks, TheEntryIsColouredThroughItsOwnOperation) {
    PutTheme();
    Load();
    EXPECT_EQ(EntryBox().BackColor(), 0xBFFFFFU);
    EXPECT_EQ(EntryBox().ForeColor(), 0x080808U);
    EXPECT_EQ(Entry().Find(u"cmdBrowse").BackColor(), 0x0F0F0FU);
    EXPECT_EQ(Entry().Find(u"cmdBrowse").ForeColor(), 0x80000012U);
}

TEST_F(SettingsLooks, OneThemeServesTheWalkAndOneTheDays) {
    PutTheme();
    form = Application::Current().Make<frmSettings>();
    form->Load();
    EXPECT_EQ(world.calls.Count("OpenThemeData"), 2U);
    EXPECT_EQ(world.calls.Count("CloseThemeData"), 2U);
}

TEST_F(SettingsLooks, FollowAChangeOfTheSystemsColours) {
    PutTheme();
    Open();
    Click(u"txtRemind");
    world.machine.appearance.theme_colours[5] = 0x000000;
    form->UpdateUI();
    EXPECT_EQ(List().BackColor(), 0x000000U);
    EXPECT_EQ(Days().BackColor(), 0x407F7FU) << "it has the focus";
    EXPECT_EQ(EntryBox().BackColor(), 0x407F7FU);
}

TEST_F(SettingsLooks, CuesAreHiddenAtFirstUnlessTheyAreAlwaysShown) {
    Load();
    EXPECT_EQ(CallsOf({"SendUpdateUiState"}),
              Lines{"SendUpdateUiState(\"" + std::to_string(form->Window()) + "\", \"196609\")"});
    EXPECT_FALSE(CuesShown());
    form->Unload();
    gKeyboardCues = true;
    world.calls.Clear();
    Load();
    EXPECT_EQ(CallsOf({"SendUpdateUiState"}),
              Lines{"SendUpdateUiState(\"" + std::to_string(form->Window()) + "\", \"196610\")"});
    EXPECT_TRUE(CuesShown());
}

TEST_F(SettingsLooks, BeforeWindows2000TheWindowIsToldNothing) {
    gWinVersion = 0x24000565;
    gKeyboardCues = true;
    Load();
    EXPECT_EQ(world.calls.Count("SendUpdateUiState"), 0U);
    EXPECT_TRUE(CuesShown());
}

TEST_F(SettingsLooks, CuesAreShownAndHiddenOnceEach) {
    Load();
    world.calls.Clear();
    form->ICue_UnCue();
    EXPECT_EQ(world.calls.Count("SendUpdateUiState"), 0U);
    form->ICue_Cue();
    EXPECT_TRUE(CuesShown());
    EXPECT_EQ(CaptionOf(u"lblRemind"), "&text 411: noun 412 of 14");
    form->ICue_Cue();
    EXPECT_EQ(world.calls.Count("SendUpdateUiState"), 1U);
    form->ICue_UnCue();
    EXPECT_FALSE(CuesShown());
    EXPECT_EQ(CaptionOf(u"lblRemind"), "text 411: noun 412 of 14");
    EXPECT_EQ(world.calls.Count("SendUpdateUiState"), 2U);
}

TEST_F(SettingsLooks, ACuePassLeavesTheEntrysParts) {
    Load();
    form->ICue_Cue();
    form->ICue_UnCue();
    EXPECT_EQ(Entry().Find(u"cmdBrowse").Caption(), u"...");
}

} // namespace kestrelmoor::tests
