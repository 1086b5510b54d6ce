#include "tests/native/forms/password_window.h"

namespace kestrelmoor::tests {

namespace {

class RunLayout : public PasswordWindow {
  protected:
    RunLayout() { ConfigureAll(); }

    void ExpectRunPlaces() {
        EXPECT_EQ(At(u"txtStatus").Top(), 600);
        EXPECT_EQ(At(u"txtStatus").Height(), 2055);
        EXPECT_EQ(At(u"cmdCancel").Top(), 2850);
        EXPECT_EQ(At(u"cmdCancel").Left(), 3660);
        EXPECT_EQ(At(u"cmdOK").Top(), 2850);
        EXPECT_EQ(At(u"cmdOK").Left(), 2160);
        EXPECT_EQ(At(u"lblWait").Top(), 2970);
        EXPECT_EQ(At(u"txtUser").Top(), 120);
        EXPECT_EQ(form->ClientHeight(), 3345);
    }
};

} // namespace

TEST_F(RunLayout, TheStatusBoxTakesTheEntriesPlaceAndTheButtonsStandBelow) {
    Run();
    ExpectRunPlaces();
}

TEST_F(RunLayout, IsTheSameFromTheListMode) {
    Open();
    TypePasswords(kOldPassword, kNewPassword);
    Same().SetValue(0);
    ClickOk();
    ExpectRunPlaces();
}

TEST_F(RunLayout, IsThereBeforeTheFirstPasswordCall) {
    bool reached = false;
    AtPasswordCall(1, [&] {
        ExpectRunPlaces();
        reached = true;
    });
    Run();
    EXPECT_TRUE(reached);
}

TEST_F(RunLayout, DuringTheRunTheTextsSaySo) {
    Lines captions;
    AtPasswordCall(2, [&] {
        captions = {ToUtf8(form->Caption()), CaptionOf(u"cmdOK"), CaptionOf(u"cmdCancel"),
                    CaptionOf(u"lblWait")};
    });
    Run();
    EXPECT_EQ(captions, (Lines{"Changing Password", "&Back", "OK", "Please wait..."}));
}

TEST_F(RunLayout, DuringTheRunOnlyUserStatusWaitLabelAndTheTwoButtonsAreToBeSeen) {
    Lines visible;
    AtPasswordCall(3, [&] { visible = VisibleControls(); });
    Run();
    EXPECT_EQ(visible, (Lines{"lblUser", "txtUser", "txtStatus", "lblWait", "cmdOK", "cmdCancel"}));
}

TEST_F(RunLayout, DuringTheRunOnlyLabelsAndTheStatusBoxAreEnabledUnderAnHourglass) {
    Lines enabled;
    int pointer = 0;
    AtPasswordCall(1, [&] {
        enabled = EnabledControls();
        pointer = form->MousePointer();
    });
    Run();
    EXPECT_EQ(enabled, (Lines{"lblUser", "txtStatus", "lblOldPass", "lblNewPass", "lblConfirm", "lblWait"}));
    EXPECT_EQ(pointer, 11);
}

TEST_F(RunLayout, DuringTheRunCancelIsTheDefaultButton) {
    const CommandButton* button = nullptr;
    AtPasswordCall(1, [&] { button = form->DefaultButton(); });
    Run();
    EXPECT_EQ(button, &At(u"cmdCancel"));
    EXPECT_EQ(form->DefaultButton(), &At(u"cmdCancel"));
    EXPECT_EQ(form->CancelButton(), &At(u"cmdCancel"));
}

TEST_F(RunLayout, AfterTheRunTheWaitLabelIsHiddenAndTheCaptionTellsTheEnd) {
    Run();
    EXPECT_EQ(VisibleControls(), (Lines{"lblUser", "txtUser", "txtStatus", "cmdOK", "cmdCancel"}));
    EXPECT_EQ(form->Caption(), u"Password Change Results");
    EXPECT_EQ(form->MousePointer(), 0);
}

TEST_F(RunLayout, AfterTheRunControlsAreEnabledAsTheyWereButForOk) {
    Run();
    EXPECT_EQ(EnabledControls(), (Lines{"lblUser", "txtStatus", "chkSame", "lblOldPass", "txtOldPass",
                                        "lstOldPass", "lblNewPass", "txtNewPass", "lblConfirm", "txtConfirm",
                                        "lblWait", "cmdSettings", "cmdCancel"}));
}

TEST_F(RunLayout, CuesThatComeDuringARunBlankTheWaitLabel) {
    std::string caption = "not reached";
    AtPasswordCall(1, [&] {
        form->ICue_Cue();
        caption = CaptionOf(u"lblWait");
    });
    Run();
    EXPECT_EQ(caption, "");
}

TEST_F(RunLayout, TheStatusBoxKeepsTheTextsOfAnotherLanguageApart) {
    world.libraries.Put(ScriptedLanguage(1031));
    Open();
    ShowSettings = [](Form&) { gLangID = 1031; };
    user.ClickOn(At(u"cmdSettings"));
    TypePasswords(kOldPassword, kNewPassword);
    ClickOk();
    EXPECT_EQ(form->Caption(), u"text 324");
    EXPECT_EQ(CaptionOf(u"cmdOK"), "text 316");
    EXPECT_EQ(CaptionOf(u"cmdCancel"), "text 317");
    EXPECT_EQ(Status(), "text 326\r\n\r\ntext 326\r\n\r\ntext 326\r\n\r\ntext 318");
}

} // namespace kestrelmoor::tests
