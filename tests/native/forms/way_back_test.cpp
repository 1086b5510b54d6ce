#include "tests/native/forms/password_window.h"

namespace kestrelmoor::tests {

namespace {

/// A window whose run has failed on every target.
class WayBack : public PasswordWindow {
  protected:
    WayBack() {
        Configure({u"\\\\ARCHIVE", u"PRACTICE"}, false);
        Run(u"wrong");
        EXPECT_TRUE(At(u"cmdOK").Enabled());
        world.calls.Clear();
    }

    /// The window that came in place of `form`.
    frmPass* Successor() {
        auto* const window = dynamic_cast<frmPass*>(OnlyForm());
        return window == form.get() ? nullptr : window;
    }
};

} // namespace

TEST_F(WayBack, IsANewWindow) {
    ClickOk();
    EXPECT_TRUE(form->IsUnloaded());
    frmPass* const window = Successor();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->Visible());
    EXPECT_EQ(Application::Current().ActiveForm(), window);
}

TEST_F(WayBack, LeadsThroughTheWatchUnlessTheWindowWasAskedFor) {
    gForceWindow = false;
    world.calls.Clear();
    ClickOk();
    ASSERT_NE(Successor(), nullptr);
    EXPECT_EQ(world.calls.Count("NetUserGetInfo"), 2U) << "each target is asked";
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(WayBack, NothingThatWasTypedSurvives) {
    ClickOk();
    frmPass* const window = Successor();
    ASSERT_NE(window, nullptr);
    for (const char16_t* name : {u"txtOldPass", u"txtNewPass", u"txtConfirm", u"txtStatus"})
        EXPECT_EQ(window->Get<TextBox>(name).Text(), u"") << ToUtf8(name);
    EXPECT_EQ(window->Caption(), u"Change Password");
    EXPECT_EQ(window->ClientHeight(), 2775);
    EXPECT_EQ(window->ActiveControl(), &window->Find(u"txtOldPass"));
    EXPECT_FALSE(window->Find(u"cmdOK").Enabled());
    EXPECT_EQ(window->Get<ListBox>(u"lstOldPass").ListCount(), 2);
}

TEST_F(WayBack, TheNewWindowCanMakeTheRun) {
    ClickOk();
    form = std::dynamic_pointer_cast<frmPass>(Successor()->shared_from_this());
    TypePasswords(kOldPassword, kNewPassword);
    ClickOk();
    EXPECT_EQ(Status(), "\\\\ARCHIVE: The password has been changed.\r\n\r\n"
                        "PRACTICE: The password has been changed.");
}

TEST_F(WayBack, MakesNoPasswordCallAndNoLogOff) {
    ClickOk();
    EXPECT_EQ(ChangedServers(), Lines{});
    EXPECT_TRUE(world.session_ends.empty());
}

TEST_F(WayBack, AsksNoTargetForItsPolicy) {
    ClickOk();
    EXPECT_EQ(CallsOf({"NetUserModalsGet", "NetGetDCName", "GetObject"}), Lines{});
}

TEST_F(WayBack, ShowsTheWaitLabelAndAnEmptyStatusBoxWhileItPumps) {
    Lines visible;
    Lines enabled;
    std::string status = "not reached";
    int pointer = 0;
    world.actions.Queue(
        [&] {
            visible = VisibleControls();
            enabled = EnabledControls();
            status = Status();
            pointer = form->MousePointer();
        },
        2);
    ClickOk();
    EXPECT_EQ(visible, (Lines{"lblUser", "txtUser", "txtStatus", "lblWait", "cmdOK", "cmdCancel"}));
    EXPECT_EQ(enabled, (Lines{"lblUser", "lblOldPass", "lblNewPass", "lblConfirm", "lblWait"}));
    EXPECT_EQ(status, "");
    EXPECT_EQ(pointer, 11);
}

TEST_F(WayBack, TheStatusIsStillThereAtTheFirstPump) {
    std::string status;
    world.actions.Queue([&] { status = Status(); });
    ClickOk();
    EXPECT_TRUE(status.starts_with("\\\\ARCHIVE: The password has not been changed."));
}

TEST_F(WayBack, PumpsTwiceBeforeTheNewWindowIsMade) {
    ClickOk();
    Lines names;
    for (const std::string& name : Names())
        if (name == "PumpEvents" || name == "SystemParametersInfoW")
            names.push_back(name);
    ASSERT_GE(names.size(), 3U);
    EXPECT_EQ(Lines(names.begin(), names.begin() + 3),
              (Lines{"PumpEvents", "PumpEvents", "SystemParametersInfoW"}));
}

TEST_F(WayBack, TheNewWindowIsMadeWhileTheOldOneStillCounts) {
    int count = 0;
    world.calls.Before("SystemParametersInfoW", [&] { count = gPassFormCount; });
    form.reset();
    dynamic_cast<CommandButton&>(OnlyForm()->Find(u"cmdOK")).Pressed();
    EXPECT_EQ(count, 1);
    EXPECT_EQ(gPassFormCount, 1);
}

TEST_F(WayBack, AWindowClosedWhileItPumpsHasNoSuccessor) {
    for (const int pump : {1, 2}) {
        world.actions.Queue([this] { EXPECT_TRUE(user.CloseWindow(*form)); }, pump);
        ClickOk();
        EXPECT_TRUE(Application::Current().Forms().empty()) << pump;
        Run(u"wrong");
    }
}

TEST_F(WayBack, ASecondClickWhileItPumpsMakesNoSecondWindow) {
    for (const int pump : {1, 2})
        world.actions.Queue([this] { EXPECT_FALSE(user.ClickOn(At(u"cmdOK"))); }, pump);
    ClickOk();
    EXPECT_NE(Successor(), nullptr);
    EXPECT_TRUE(world.actions.Empty());
}

TEST_F(WayBack, TheEventLoopGoesOnFromTheOldWindowToTheNew) {
    world.actions.Queue([this] { ClickOk(); });
    bool reached = false;
    world.actions.Queue(
        [&] {
            reached = Successor() != nullptr;
            Application::Current().UnloadAll();
        },
        100);
    Application::Current().Run();
    EXPECT_TRUE(reached);
}

TEST_F(WayBack, EnterOnTheFocusedButtonGoesBack) {
    ASSERT_EQ(form->ActiveControl(), &At(u"cmdOK"));
    user.Press(key::kReturn);
    EXPECT_NE(Successor(), nullptr);
}

TEST_F(WayBack, EnterElsewhereCloses) {
    ASSERT_TRUE(user.ClickOn(At(u"txtStatus")));
    user.Press(key::kReturn);
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_TRUE(Application::Current().Forms().empty());
}

TEST_F(WayBack, CancelClosesForGood) {
    user.ClickOn(At(u"cmdCancel"));
    EXPECT_TRUE(Application::Current().Forms().empty());
    EXPECT_TRUE(world.session_ends.empty());
}

TEST_F(WayBack, TheAcceleratorOfTheButtonGoesBack) {
    user.Press(u'B', key::kAltMask);
    EXPECT_NE(Successor(), nullptr);
}

} // namespace kestrelmoor::tests
