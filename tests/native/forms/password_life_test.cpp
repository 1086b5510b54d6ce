#include "tests/native/forms/password_window.h"

namespace kestrelmoor::tests {

namespace {

class PasswordLife : public PasswordWindow {};

} // namespace

TEST_F(PasswordLife, MakingTheFormAsksForTheCuesAndCountsIt) {
    form = Application::Current().Make<frmPass>();
    EXPECT_EQ(world.calls.Count("SystemParametersInfoW"), 1U);
    EXPECT_EQ(gPassFormCount, 1);
    EXPECT_FALSE(form->IsLoaded());
}

TEST_F(PasswordLife, EveryInstanceCountsAndTheLastHolderEndsIt) {
    form = Application::Current().Make<frmPass>();
    auto second = Application::Current().Make<frmPass>();
    EXPECT_EQ(gPassFormCount, 2);
    second.reset();
    EXPECT_EQ(gPassFormCount, 1);
    form.reset();
    EXPECT_EQ(gPassFormCount, 0);
}

TEST_F(PasswordLife, AnUnloadedFormStillCountsWhileItIsHeld) {
    Open();
    form->Unload();
    EXPECT_EQ(gPassFormCount, 1);
    form.reset();
    EXPECT_EQ(gPassFormCount, 0);
}

TEST_F(PasswordLife, LoadingShowsTheForm) {
    ConfigureAll();
    form = Application::Current().Make<frmPass>();
    form->Load();
    EXPECT_TRUE(form->Visible());
    EXPECT_EQ(Application::Current().ActiveForm(), form.get());
    EXPECT_EQ(form->ActiveControl(), &At(u"txtOldPass"));
}

TEST_F(PasswordLife, AWindowThatIsClosedAsItComesUpListensToNoMessages) {
    form = Application::Current().Make<frmPass>();
    for (const auto& control : form->Controls())
        control->GotFocus = [this] { form->Unload(); };
    form->Show();
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(world.calls.Count("SetWindowProcedure"), 0U);
    EXPECT_EQ(gRedirectTarget, nullptr);
}

TEST_F(PasswordLife, AWindowThatIsSwitchedToTheListAsItComesUpBeginsWithAnEditThere) {
    ConfigureAll();
    form = Application::Current().Make<frmPass>();
    Same().GotFocus = [this] { Same().SetValue(0); };
    form->Show();
    EXPECT_EQ(Same().Value(), 0);
    EXPECT_EQ(List().ListIndex(), 0);
    EXPECT_EQ(form->ActiveControl(), &At(u"txtOldPass"));
}

TEST_F(PasswordLife, OpensWithTheFocusOnTheOldPasswordAndOkDisabled) {
    ConfigureAll();
    Open();
    EXPECT_EQ(form->ActiveControl(), &At(u"txtOldPass"));
    EXPECT_FALSE(At(u"cmdOK").Enabled());
    EXPECT_EQ(List().ListIndex(), -1);
    EXPECT_EQ(form->MousePointer(), 0);
}

TEST_F(PasswordLife, ShowsTheUsersName) {
    gUserName = u"m\u00FCller";
    Open();
    EXPECT_EQ(Box(u"txtUser").Text(), u"m\u00FCller");
}

TEST_F(PasswordLife, ListsTheActiveServersAndTheLocalComputerInTheListsOrder) {
    Configure({u"PRACTICE", u"\\\\ARCHIVE", u"\\\\SPARE"}, true);
    gActiveBits = Array<std::uint8_t>(1, {0x03});
    Open();
    EXPECT_EQ(Targets(), (Lines{" This computer", "\\\\ARCHIVE", "PRACTICE"}));
}

TEST_F(PasswordLife, LeavesTheLocalComputerOutWhereItTakesNoPart) {
    Configure({u"PRACTICE"}, false);
    Open();
    EXPECT_EQ(Targets(), Lines{"PRACTICE"});
}

TEST_F(PasswordLife, ReadsTheBitsOfServersBeyondTheEighth) {
    Configure({u"A", u"B", u"C", u"D", u"E", u"F", u"G", u"H", u"I", u"J"}, false);
    gActiveBits = Array<std::uint8_t>(1, {0x80, 0x02});
    Open();
    EXPECT_EQ(Targets(), (Lines{"H", "J"}));
}

TEST_F(PasswordLife, ServersThatDifferOnlyInCaseShareARow) {
    Configure({u"\\\\ARCHIVE", u"\\\\archive", u"co-op", u"coop"}, false);
    Open();
    EXPECT_EQ(Targets(), (Lines{"\\\\ARCHIVE", "coop", "co-op"}));
}

TEST_F(PasswordLife, WithoutTargetsTheCheckBoxIsCheckedAndStaysEnabled) {
    Open();
    EXPECT_TRUE(Targets().empty());
    EXPECT_EQ(Same().Value(), 1);
    EXPECT_TRUE(Same().Enabled());
}

TEST_F(PasswordLife, WithOneTargetTheCheckBoxIsCheckedAndDisabled) {
    Configure({}, true);
    Open();
    EXPECT_EQ(Targets(), Lines{" This computer"});
    EXPECT_EQ(Same().Value(), 1);
    EXPECT_FALSE(Same().Enabled());
}

TEST_F(PasswordLife, WithTwoTargetsTheCheckBoxCanBeCleared) {
    Configure({u"PRACTICE"}, true);
    Open();
    EXPECT_EQ(Same().Value(), 1);
    EXPECT_TRUE(Same().Enabled());
}

TEST_F(PasswordLife, FindsTheHelpFileAtLoad) {
    Open();
    EXPECT_EQ(gHelpFile, u"");
    form->Unload();
    world.files.CreateFile(u"C:\\Program Files\\Kestrelmoor\\Help-1033.html");
    Open();
    EXPECT_EQ(gHelpFile, u"C:\\Program Files\\Kestrelmoor\\Help-1033.html");
}

TEST_F(PasswordLife, F1IsSwallowedAndAnotherKeyIsNot) {
    Open();
    std::vector<int> keys;
    Box(u"txtOldPass").KeyDown = [&keys](int& code, int) { keys.push_back(code); };
    constexpr int kF2 = 113;
    user.Press(key::kF1);
    user.Press(kF2);
    EXPECT_EQ(keys, std::vector<int>{kF2});
    EXPECT_TRUE(form->IsLoaded());
}

TEST_F(PasswordLife, F1OpensTheHelpFileForItsWindowWhereThereIsOne) {
    Open();
    user.Press(key::kF1);
    EXPECT_TRUE(world.shell_executions.empty());
    gHelpFile = u"C:\\help.html";
    user.Press(key::kF1);
    ASSERT_EQ(world.shell_executions.size(), 1U);
    EXPECT_EQ(world.shell_executions[0].file, u"C:\\help.html");
    EXPECT_EQ(world.shell_executions[0].window, form->Window());
}

TEST_F(PasswordLife, CancelEscapeAndTheCloseBoxCloseAtOnceAndAskNothing) {
    ConfigureAll();
    for (const int way : {0, 1, 2}) {
        Open();
        TypeInto(u"txtNewPass", u"typed");
        if (way == 0)
            user.ClickOn(At(u"cmdCancel"));
        else if (way == 1)
            user.Press(key::kEscape);
        else
            user.CloseWindow(*form);
        EXPECT_TRUE(form->IsUnloaded()) << way;
        EXPECT_TRUE(Application::Current().Forms().empty()) << way;
    }
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_TRUE(world.session_ends.empty());
}

TEST_F(PasswordLife, ClosingEndsTheEventLoop) {
    Open();
    world.actions.Queue([this] { user.CloseWindow(*form); });
    Application::Current().Run();
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_TRUE(world.actions.Empty());
}

TEST_F(PasswordLife, TabRunsThroughTheSingleModeInTabOrder) {
    ConfigureAll();
    Open();
    TypeInto(u"txtNewPass", u"x");
    Box(u"txtOldPass").SetFocus();
    StringList stops;
    for (int i = 0; i < 7; ++i) {
        user.Press(key::kTab);
        stops.push_back(form->ActiveControl()->Name());
    }
    EXPECT_EQ(stops, (StringList{u"txtNewPass", u"txtConfirm", u"cmdSettings", u"cmdOK", u"cmdCancel",
                                 u"chkSame", u"txtOldPass"}));
}

TEST_F(PasswordLife, AcceleratorsOfTheLabelsLeadToTheirBoxes) {
    ConfigureAll();
    Open();
    form->ICue_Cue();
    user.Press(u'N', key::kAltMask);
    EXPECT_EQ(form->ActiveControl(), &At(u"txtNewPass"));
    user.Press(u'C', key::kAltMask);
    EXPECT_EQ(form->ActiveControl(), &At(u"txtConfirm"));
    user.Press(u'O', key::kAltMask);
    EXPECT_EQ(form->ActiveControl(), &At(u"txtOldPass"));
}

} // namespace kestrelmoor::tests
