#include "tests/native/forms/password_window.h"

namespace kestrelmoor::tests {

namespace {

class PasswordTexts : public PasswordWindow {
  protected:
    PasswordTexts() { ConfigureAll(); }

    StringList LabelCaptions() {
        StringList captions;
        for (const char16_t* name : {u"lblUser", u"lblOldPass", u"lblNewPass", u"lblConfirm"})
            captions.push_back(At(name).Caption());
        return captions;
    }

    /// The form's own cue messages since the last call: wParam of each.
    StringList CueMessages() {
        StringList messages;
        for (const practice::Call& call : world.calls.Of("SendUpdateUiState")) {
            EXPECT_EQ(call.arguments.at(0), FromUtf8(std::to_string(form->Window())));
            messages.push_back(call.arguments.at(1));
        }
        world.calls.Clear();
        return messages;
    }
};

constexpr char16_t kShow[] = u"196610"; // 0x30002
constexpr char16_t kHide[] = u"196609"; // 0x30001

} // namespace

TEST_F(PasswordTexts, EveryCaptionComesFromTheLibrary) {
    Open();
    EXPECT_EQ(form->Caption(), u"Change Password");
    EXPECT_EQ(Same().Caption(), u"&Use the same old password everywhere");
    EXPECT_EQ(CaptionOf(u"cmdSettings"), "&Settings...");
    EXPECT_EQ(CaptionOf(u"cmdOK"), "OK");
    EXPECT_EQ(CaptionOf(u"cmdCancel"), "Cancel");
}

TEST_F(PasswordTexts, LabelsKeepTheirTextWithTheMarkInTheTag) {
    Open();
    EXPECT_EQ(At(u"lblUser").Tag(), u"User name:");
    EXPECT_EQ(At(u"lblOldPass").Tag(), u"&Old password:");
    EXPECT_EQ(At(u"lblNewPass").Tag(), u"&New password:");
    EXPECT_EQ(At(u"lblConfirm").Tag(), u"&Confirm password:");
    EXPECT_EQ(At(u"lblWait").Tag(), u"");
}

TEST_F(PasswordTexts, NumbersInTagsStayWhereTheyAre) {
    Open();
    EXPECT_EQ(form->Tag(), u"303");
    EXPECT_EQ(At(u"chkSame").Tag(), u"313");
    EXPECT_EQ(At(u"cmdOK").Tag(), u"1001");
}

TEST_F(PasswordTexts, EveryControlAndTheFormHaveTheLibrarysFont) {
    Open();
    EXPECT_EQ(form->Font().Name(), u"MS Shell Dlg 2");
    EXPECT_EQ(form->Font().Charset(), 1);
    for (const auto& control : form->Controls()) {
        EXPECT_EQ(control->Font().Name(), u"MS Shell Dlg 2") << ToUtf8(control->Name());
        EXPECT_EQ(control->Font().Charset(), 1) << ToUtf8(control->Name());
    }
}

TEST_F(PasswordTexts, TheFontIsChangedInPlaceItsNameFirst) {
    world.libraries.Put(ScriptedLanguage(1031));
    Open();
    std::vector<std::pair<String, int>> changes;
    Font& font = At(u"lstOldPass").Font();
    font.FontChanged = [&] { changes.emplace_back(font.Name(), font.Charset()); };
    ShowSettings = [](Form&) { gLangID = 1031; };
    user.ClickOn(At(u"cmdSettings"));
    EXPECT_EQ(changes, (std::vector<std::pair<String, int>>{{u"Scripted Sans", 1}, {u"Scripted Sans", 204}}));
    EXPECT_EQ(&At(u"lstOldPass").Font(), &font);
}

TEST_F(PasswordTexts, ATextThatTheLibraryLacksCostsABoxAndIsEmpty) {
    form = Application::Current().Make<frmPass>();
    At(u"chkSame").SetTag(u"9999");
    form->Show();
    EXPECT_EQ(Same().Caption(), u"");
    EXPECT_EQ(Boxes().size(), 1U);
    EXPECT_EQ(CaptionOf(u"cmdOK"), "OK");
}

TEST_F(PasswordTexts, CuesAreHiddenAtTheStartWhereTheSystemHidesThem) {
    Open();
    EXPECT_FALSE(gKeyboardCues);
    EXPECT_EQ(LabelCaptions(),
              (StringList{u"User name:", u"Old password:", u"New password:", u"Confirm password:"}));
    EXPECT_EQ(CueMessages(), StringList{kHide});
}

TEST_F(PasswordTexts, CuesAreShownAtTheStartWhereTheSystemShowsThem) {
    world.machine.keyboard_cues = true;
    Open();
    EXPECT_TRUE(gKeyboardCues);
    EXPECT_EQ(LabelCaptions(),
              (StringList{u"User name:", u"&Old password:", u"&New password:", u"&Confirm password:"}));
    EXPECT_EQ(CueMessages(), StringList{kShow});
}

TEST_F(PasswordTexts, CuesAreHiddenWhereTheSystemCantSay) {
    world.machine.keyboard_cues = true;
    world.Fail("SystemParametersInfoW", 1);
    Open();
    EXPECT_FALSE(gKeyboardCues);
}

TEST_F(PasswordTexts, ASystemBeforeWindows2000ShowsCuesIsNotAskedAndGetsNoMessage) {
    gWinVersion = 0x24FFFFFF;
    Open();
    EXPECT_TRUE(gKeyboardCues);
    EXPECT_EQ(CaptionOf(u"lblNewPass"), "&New password:");
    form->ICue_UnCue();
    EXPECT_EQ(CaptionOf(u"lblNewPass"), "New password:");
    EXPECT_EQ(world.calls.Count("SystemParametersInfoW"), 0U);
    EXPECT_EQ(world.calls.Count("SendUpdateUiState"), 0U);
}

TEST_F(PasswordTexts, Windows2000IsAskedAndToldOfTheCues) {
    gWinVersion = 0x25000000;
    Open();
    EXPECT_EQ(world.calls.Count("SystemParametersInfoW"), 1U);
    EXPECT_EQ(CueMessages(), StringList{kHide});
}

TEST_F(PasswordTexts, APassRunsOnlyWhereItChangesTheState) {
    Open();
    CueMessages();
    form->ICue_UnCue();
    EXPECT_EQ(CueMessages(), StringList{});
    form->ICue_Cue();
    form->ICue_Cue();
    EXPECT_EQ(CueMessages(), StringList{kShow});
    EXPECT_EQ(LabelCaptions(),
              (StringList{u"User name:", u"&Old password:", u"&New password:", u"&Confirm password:"}));
    form->ICue_UnCue();
    form->ICue_UnCue();
    EXPECT_EQ(CueMessages(), StringList{kHide});
    EXPECT_EQ(LabelCaptions(),
              (StringList{u"User name:", u"Old password:", u"New password:", u"Confirm password:"}));
}

TEST_F(PasswordTexts, ButtonsKeepTheirMarksInBothPasses) {
    Open();
    EXPECT_EQ(CaptionOf(u"cmdSettings"), "&Settings...");
    form->ICue_Cue();
    EXPECT_EQ(CaptionOf(u"cmdSettings"), "&Settings...");
    EXPECT_EQ(Same().Caption(), u"&Use the same old password everywhere");
}

TEST_F(PasswordTexts, OnlyTheFirstOfTwoMarksGoes) {
    Open();
    At(u"lblNewPass").SetTag(u"Re&search && &more");
    form->ICue_Cue();
    EXPECT_EQ(CaptionOf(u"lblNewPass"), "Re&search && &more");
    form->ICue_UnCue();
    EXPECT_EQ(CaptionOf(u"lblNewPass"), "Research && &more");
}

TEST_F(PasswordTexts, ALabelWithAnEmptyTagLosesItsCaptionInEitherPass) {
    Open();
    At(u"lblWait").SetCaption(u"Please wait...");
    form->ICue_Cue();
    EXPECT_EQ(CaptionOf(u"lblWait"), "");
    At(u"lblWait").SetCaption(u"Please wait...");
    form->ICue_UnCue();
    EXPECT_EQ(CaptionOf(u"lblWait"), "");
}

} // namespace kestrelmoor::tests
