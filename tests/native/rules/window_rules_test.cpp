#include "tests/native/rules/window_rules.h"

#include "forms/about/frmAbout.h"
#include "forms/settings/frmSettings.h"
#include "localization/language_resolution.h"
#include "tests/native/forms/password_rows.h"
#include "tests/native/rules/form_rules.h"
#include "tests/native/support/accounts_of.h"

#include <algorithm>
#include <utility>

namespace kestrelmoor::tests {

namespace {

/// The rules stay silent on a sound window and speak up on one that something has been done to.
class RulesOfTheWindows : public PasswordRows {
  protected:
    RulesOfTheWindows() { LiftPolicies(); }

    void ExpectSilence() { EXPECT_EQ(rules.Look(), Lines()); }

    void ExpectComplaint(const std::string& rule) {
        const Lines broken = rules.Look();
        EXPECT_TRUE(
            std::ranges::any_of(broken, [&](const std::string& text) { return text.starts_with(rule); }))
            << rule << " among " << testing::PrintToString(broken);
    }

    /// In which the stand-alone server refuses the change.
    void RunWithARefusal() {
        Open();
        TypePasswords(kOldPassword, kNewPassword);
        rules.Look();
        world.Fail("NetUserChangePassword", 2245, 2);
        ClickOk();
        ExpectSilence();
    }

    /// Of the only target, so that OK is the way back.
    void RunWithoutSuccess() {
        Configure({u"\\\\ARCHIVE"}, false);
        Open();
        TypePasswords(kOldPassword, kNewPassword);
        rules.Look();
        world.Fail("NetUserChangePassword", 2245, 1);
        ClickOk();
        ExpectSilence();
    }

    /// Into a new window, which nobody but the program holds.
    void GoBack() {
        ASSERT_TRUE(user.ClickOn(At(u"cmdOK")));
        form.reset();
        ASSERT_NE(OnlyForm(), nullptr);
        EXPECT_FALSE(OnlyForm()->Find(u"txtStatus").Visible());
    }

    /// Over the password window, as if it had been asked for.
    frmSettings& OpenSettings() {
        Open();
        modules_left = 1; // the language library, which was asked for its languages
        settings = Application::Current().Make<frmSettings>();
        settings->Show();
        rules.Look();
        return *settings;
    }

    WindowRules rules;
    std::shared_ptr<frmSettings> settings;
};

} // namespace

TEST_F(RulesOfTheWindows, AreSilentOnASoundWindowInEachMode) {
    Open();
    ExpectSilence();
    user.ClickOn(Same());
    ExpectSilence();
    Edit(1);
    ExpectSilence();
    user.Type(u"a");
    ExpectSilence();
    Leave();
    ExpectSilence();
    user.Type(u"b");
    TypeInto(u"txtConfirm", u"b");
    ExpectSilence();
    ClickOk();
    ExpectSilence();
}

TEST_F(RulesOfTheWindows, SeeAButtonThatIsEnabledWithoutNeed) {
    Open();
    At(u"cmdOK").SetEnabled(true);
    ExpectComplaint("OK asks for a new password");
}

TEST_F(RulesOfTheWindows, SeeAButtonThatForgetsTheOldPasswordOfARow) {
    OpenRows();
    TypeOld(1, u"abc");
    rules.Look();
    Leave();
    ExpectSilence();
    At(u"cmdOK").SetEnabled(false);
    ExpectComplaint("OK asks for a new password");
}

TEST_F(RulesOfTheWindows, SeeAControlOutOfItsPlace) {
    Open();
    At(u"txtConfirm").SetTop(1815);
    ExpectComplaint("stands where its mode has it: txtConfirm");
}

TEST_F(RulesOfTheWindows, SeeControlsThatCoverEachOther) {
    Open();
    At(u"cmdOK").SetLeft(At(u"cmdCancel").Left() - 15);
    ExpectComplaint("no control covers another: cmdOK and cmdCancel");
}

TEST_F(RulesOfTheWindows, SeeAControlOutsideItsWindow) {
    Open();
    At(u"cmdCancel").SetLeft(4500);
    ExpectComplaint("stands inside its window: cmdCancel");
}

TEST_F(RulesOfTheWindows, SeeAPasswordBoxWithoutAMask) {
    Open();
    Box(u"txtNewPass").SetPasswordChar(u"");
    ExpectComplaint("a password box is masked");
}

TEST_F(RulesOfTheWindows, SeeAControlThatIsMissing) {
    Open();
    At(u"txtConfirm").SetVisible(false);
    ExpectComplaint("is seen in its mode alone: txtConfirm");
}

TEST_F(RulesOfTheWindows, SeeALabelWithAnAcceleratorAmongLabelsWithout) {
    Open();
    for (const char16_t* const name : {u"lblNewPass", u"lblConfirm"})
        At(name).SetTag(u"&" + String(name));
    At(u"lblNewPass").SetCaption(At(u"lblNewPass").Tag());
    ExpectComplaint("labels show their accelerators all or none");
}

TEST_F(RulesOfTheWindows, SeeARowThatShowsAPassword) {
    OpenRows();
    List().SetList(1, u"\\\\ARCHIVE\tpassword");
    ExpectComplaint("a row shows nothing but a mask");
}

TEST_F(RulesOfTheWindows, SeeAMaskThatTellsThatThereIsNoPassword) {
    OpenRows();
    List().SetList(1, u"\\\\ARCHIVE\t*");
    List().SetItemData(1, 1);
    ExpectComplaint("the mask is as long as the password");
}

TEST_F(RulesOfTheWindows, SeeABoxBesideItsRow) {
    OpenRows();
    Edit(1);
    ExpectSilence();
    InPlace().SetTop(InPlace().Top() + 15);
    ExpectComplaint("the box lies over its row");
}

TEST_F(RulesOfTheWindows, SeeAnOldPasswordThatIsLost) {
    OpenRows();
    TypeOld(1, u"abc");
    rules.Look();
    Leave();
    rules.Look();
    Edit(1);
    InPlace().SetText(u"ab");
    ExpectComplaint("a row's old password comes back");
}

TEST_F(RulesOfTheWindows, SeeTheModeOfferedForATargetAlone) {
    Configure({}, true);
    Open();
    ExpectSilence();
    Same().SetEnabled(true);
    ExpectComplaint("one password for each target from two targets on");
}

TEST_F(RulesOfTheWindows, SeeAWayBackWhereTheSessionWillEnd) {
    Run();
    ExpectSilence();
    At(u"cmdOK").SetEnabled(true);
    ExpectComplaint("no way back where the session will end");
}

TEST_F(RulesOfTheWindows, SeeATargetThatIsWronglyToldAsChanged) {
    RunWithARefusal();
    AccountsOf(world.network, u"PRACTICE")->Find(u"user")->password = u"another";
    ExpectComplaint("a target that is told as changed has the new password: PRACTICE");
}

TEST_F(RulesOfTheWindows, SeeATargetThatIsWronglyToldAsNotChanged) {
    RunWithARefusal();
    AccountsOf(world.network, u"ARCHIVE")->Find(u"user")->password = u"another";
    ExpectComplaint("a target that is told as not changed has its former password: \\\\ARCHIVE");
}

TEST_F(RulesOfTheWindows, SeeATargetWithoutAParagraph) {
    RunWithARefusal();
    Box(u"txtStatus").SetText(u"");
    ExpectComplaint("one paragraph for each target: \\\\ARCHIVE");
}

TEST_F(RulesOfTheWindows, SeeAMissingParagraphWhereTheLanguageNamesNoTarget) {
    world.libraries.Put(ScriptedLanguage(1031));
    ASSERT_FALSE(LoadLocalization(1031));
    modules_left = 1; // the former language library
    RunWithARefusal();
    Box(u"txtStatus").SetText(Box(u"txtStatus").Text().substr(TextOf(326).size()));
    ExpectComplaint("as many paragraphs as targets");
}

TEST_F(RulesOfTheWindows, SeeASessionThatWouldGoOn) {
    RunWithARefusal();
    At(u"cmdCancel").SetCaption(At(u"cmdOK").Caption());
    ExpectComplaint("the session ends exactly where");
}

TEST_F(RulesOfTheWindows, SeeAWayBackThatIsMissing) {
    RunWithoutSuccess();
    At(u"cmdOK").SetEnabled(false);
    ExpectComplaint("the way back is offered exactly where");
}

TEST_F(RulesOfTheWindows, SeeAWayBackWithoutTheFocus) {
    RunWithoutSuccess();
    EXPECT_EQ(form->FocusHolder(), &At(u"cmdOK"));
    form->FocusMoved(nullptr);
    ExpectComplaint("a way back takes the focus");
}

TEST_F(RulesOfTheWindows, SeeAWindowWithoutADefaultButton) {
    Open();
    form->Get<CommandButton>(u"cmdOK").SetDefault(false);
    ExpectComplaint("one default button and one cancel button");
}

TEST_F(RulesOfTheWindows, SeeAWindowOfTheOtherModesHeight) {
    Open();
    form->SetHeight(form->Height() + 15);
    ExpectComplaint("the window is as high as its mode asks");
}

TEST_F(RulesOfTheWindows, SeeAListThatTheTabKeyPasses) {
    OpenRows();
    ExpectSilence();
    List().SetTabStop(false);
    ExpectComplaint("the list is a tab stop while no row is in edit");
}

TEST_F(RulesOfTheWindows, SeeOkThatIsEnabledWithoutAChange) {
    OpenSettings().Find(u"cmdOK").SetEnabled(true);
    ExpectComplaint("nothing but a change enables OK");
}

TEST_F(RulesOfTheWindows, SeeAChosenServerThatCannotBeRemoved) {
    frmSettings& window = OpenSettings();
    user.ClickOn(window.Find(u"lstServers"));
    window.Find(u"cmdRemServer").SetEnabled(false);
    ExpectComplaint("a chosen server can be removed");
}

TEST_F(RulesOfTheWindows, SeeASettingsWindowThatForgetsAChange) {
    frmSettings& window = OpenSettings();
    window.Get<CheckBox>(u"chkRemind").SetValue(gAutoStart ? 0 : 1);
    window.Find(u"cmdOK").SetEnabled(false);
    ExpectComplaint("a change enables OK");
}

TEST_F(RulesOfTheWindows, SeeAHookOfTheCuesThatIsMissing) {
    Open();
    ExpectSilence();
    const auto hook = std::exchange(gMouseHook, 0);
    ExpectComplaint("the hooks of the cues stay");
    gMouseHook = hook;
}

TEST_F(RulesOfTheWindows, SeeAHookOfTheCuesThatNobodyAskedFor) {
    Open();
    world.calls.Clear();
    const auto hook = std::exchange(gMouseHook, 0);
    ExpectComplaint("the hooks of the cues");
    gMouseHook = hook;
}

TEST_F(RulesOfTheWindows, LetASystemRefuseTheHooksOfTheCues) {
    world.Fail("SetWindowsHookExW", 5, 0);
    Open();
    EXPECT_EQ(gMouseHook, 0U);
    ExpectSilence();
    ExpectSilence();
}

TEST_F(RulesOfTheWindows, LetTheWindowBehindAWayBackDoWithoutTheHooksThatWereRefused) {
    gForceWindow = true;
    world.Fail("SetWindowsHookExW", 5, 0);
    RunWithoutSuccess();
    GoBack();
    EXPECT_EQ(gMouseHook, 0U);
    ExpectSilence();
}

TEST_F(RulesOfTheWindows, SeeAHookOfTheCuesThatAWayBackHasLost) {
    gForceWindow = true;
    RunWithoutSuccess();
    GoBack();
    const auto hook = std::exchange(gMouseHook, 0);
    ExpectComplaint("the hooks of the cues");
    gMouseHook = hook;
}

TEST_F(RulesOfTheWindows, SeeHelpOfferedWithoutAHelpFile) {
    OpenSettings();
    const auto about = Application::Current().Make<frmAbout>();
    about->Show();
    const Lines before = rules.Look();
    EXPECT_TRUE(
        std::ranges::none_of(before, [](const std::string& rule) { return rule.starts_with("help"); }));
    Control& help = about->Find(u"cmdHelp");
    help.SetEnabled(!help.Enabled());
    ExpectComplaint("help where there is a help file");
}

TEST_F(RulesOfTheWindows, SeeASettingThatChangesAheadOfOk) {
    OpenSettings();
    gReminderTime += 86400;
    ExpectComplaint("nothing but OK changes what the program holds");
}

TEST_F(RulesOfTheWindows, SeeARowThatWaitsForNoName) {
    OpenSettings().Get<ListBox>(u"lstServers").AddItem(u"...");
    ExpectComplaint("no row waits for a name");
}

TEST_F(RulesOfTheWindows, SeeABoxOfDaysThatWasLeftTooFull) {
    OpenSettings().Get<TextBox>(u"txtRemind").SetText(u"100");
    ExpectComplaint("a box with more than 99 days");
}

TEST_F(RulesOfTheWindows, SeeTwoWindowsThatTakeInput) {
    OpenSettings();
    ExpectComplaint("the front window takes the input: frmPass");
}

} // namespace kestrelmoor::tests
