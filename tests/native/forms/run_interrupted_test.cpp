#include "tests/native/forms/password_window.h"

namespace kestrelmoor::tests {

namespace {

/// What comes from the user while events are pumped during a click on OK.
class RunInterrupted : public PasswordWindow {
  protected:
    RunInterrupted() {
        ConfigureAll();
        Open();
        TypePasswords(kOldPassword, kNewPassword);
    }

    /// Queues what the user does for a pump of the click to come: the first is the click's own, then there
    /// is one before each target.
    void AtPump(int nth, std::function<void()> action) { world.actions.Queue(std::move(action), nth); }

    void CloseAtPump(int nth) {
        AtPump(nth, [this] { EXPECT_TRUE(user.CloseWindow(*form)); });
    }
};

} // namespace

TEST_F(RunInterrupted, AWindowClosedAtTheClickMakesNoRun) {
    CloseAtPump(1);
    ClickOk();
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(ChangedServers(), Lines{});
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_EQ(form->Caption(), u"Change Password");
}

TEST_F(RunInterrupted, AWindowClosedAtTheClickIsNotCheckedEither) {
    Box(u"txtConfirm").SetText(u"other");
    CloseAtPump(1);
    ClickOk();
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(RunInterrupted, AWindowClosedBeforeTheFirstTargetMakesNoPasswordCall) {
    CloseAtPump(2);
    ClickOk();
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(ChangedServers(), Lines{});
    EXPECT_TRUE(world.session_ends.empty());
}

TEST_F(RunInterrupted, NoPasswordCallFollowsAClosedWindow) {
    CloseAtPump(3);
    ClickOk();
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(ChangedServers(), Lines{"\\\\WORKBENCH"});
    EXPECT_EQ(Status(), " This computer: The password has been changed.");
    EXPECT_EQ(form->Caption(), u"Changing Password");
}

TEST_F(RunInterrupted, NoServerIsLookedForBehindAClosedWindow) {
    CloseAtPump(4);
    world.calls.Clear();
    ClickOk();
    EXPECT_EQ(ChangedServers(), (Lines{"\\\\WORKBENCH", "\\\\ARCHIVE"}));
    // The one look-up is that of the checks ahead of the run.
    EXPECT_EQ(CallsOf({"NetGetDCName", "NetUserModalsGet"}).back(), "NetUserModalsGet(\"\\\\DC1\")");
    EXPECT_EQ(world.calls.Count("NetGetDCName"), 1U);
    EXPECT_EQ(Names().back(), "ExitWindowsEx");
}

TEST_F(RunInterrupted, AWindowClosedAfterTheOwnPasswordChangedLogsOff) {
    CloseAtPump(3);
    ClickOk();
    EXPECT_EQ(CallsOf({"ExitWindowsEx"}), Lines{"ExitWindowsEx(\"0\", \"0\")"});
}

TEST_F(RunInterrupted, AWindowClosedWithinAPasswordCallIsTheLastTargets) {
    AtPasswordCall(3, [this] { user.CloseWindow(*form); });
    ClickOk();
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(ChangedServers().size(), 3U);
    EXPECT_TRUE(Application::Current().Forms().empty());
    EXPECT_EQ(form->Caption(), u"Changing Password");
}

TEST_F(RunInterrupted, AWindowClosedWithinTheCallThatChangesTheOwnPasswordLogsOff) {
    AtPasswordCall(1, [this] { user.CloseWindow(*form); });
    ClickOk();
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(ChangedServers(), Lines{"\\\\WORKBENCH"});
    EXPECT_EQ(CallsOf({"ExitWindowsEx"}), Lines{"ExitWindowsEx(\"0\", \"0\")"});
}

TEST_F(RunInterrupted, AClosedWindowNobodyHoldsLivesUntilItsClickHasEnded) {
    const std::weak_ptr<frmPass> window = form;
    CommandButton& ok = form->Get<CommandButton>(u"cmdOK");
    Form& closed = *form;
    form.reset();
    AtPump(3, [this, &closed] { user.CloseWindow(closed); });
    ok.Pressed();
    EXPECT_EQ(ChangedServers(), Lines{"\\\\WORKBENCH"});
    EXPECT_TRUE(window.expired());
    EXPECT_EQ(gPassFormCount, 0);
}

TEST_F(RunInterrupted, ASecondClickOnOkIsNoSecondRun) {
    for (const int nth : {1, 2, 3, 4})
        AtPump(nth, [this] { EXPECT_FALSE(user.ClickOn(At(u"cmdOK"))); });
    ClickOk();
    EXPECT_EQ(ChangedServers(), (Lines{"\\\\WORKBENCH", "\\\\ARCHIVE", "\\\\DC1"}));
    EXPECT_TRUE(world.actions.Empty());
}

TEST_F(RunInterrupted, AClickThatReachesTheHandlerOfADisabledOkDoesNothing) {
    for (const int nth : {1, 3})
        AtPump(nth, [this] { At(u"cmdOK").Click(); });
    ClickOk();
    EXPECT_TRUE(world.actions.Empty());
    EXPECT_EQ(ChangedServers(), (Lines{"\\\\WORKBENCH", "\\\\ARCHIVE", "\\\\DC1"}));
    EXPECT_TRUE(form->IsLoaded());
}

TEST_F(RunInterrupted, EnterAndEscapeDoNothingDuringTheRun) {
    for (const int nth : {1, 2, 3, 4})
        AtPump(nth, [this] {
            user.Press(key::kReturn);
            user.Press(key::kEscape);
        });
    ClickOk();
    EXPECT_TRUE(world.actions.Empty());
    EXPECT_TRUE(form->IsLoaded());
    EXPECT_EQ(ChangedServers(), (Lines{"\\\\WORKBENCH", "\\\\ARCHIVE", "\\\\DC1"}));
}

TEST_F(RunInterrupted, CancelCantBeClickedDuringTheRun) {
    AtPump(2, [this] { EXPECT_FALSE(user.ClickOn(At(u"cmdCancel"))); });
    ClickOk();
    EXPECT_TRUE(form->IsLoaded());
    EXPECT_TRUE(world.actions.Empty());
}

TEST_F(RunInterrupted, TheStatusBoxCanBeReadButNotTypedIn) {
    AtPump(4, [this] {
        EXPECT_TRUE(user.ClickOn(At(u"txtStatus")));
        user.Type(u"scribble");
        Box(u"txtStatus").SetSelStart(3);
    });
    ClickOk();
    EXPECT_TRUE(world.actions.Empty());
    EXPECT_EQ(Status().find("scribble"), std::string::npos);
    EXPECT_TRUE(Status().starts_with(" This computer: The password has been changed.\r\n\r\n"
                                     "\\\\ARCHIVE: The password has been changed.\r\n\r\nPRACTICE"));
}

TEST_F(RunInterrupted, WhatTheUserSelectsInTheStatusBoxIsNotOverwritten) {
    AtPump(3, [this] {
        Box(u"txtStatus").SetSelStart(0);
        Box(u"txtStatus").SetSelLength(10);
    });
    ClickOk();
    EXPECT_TRUE(world.actions.Empty());
    EXPECT_TRUE(Status().starts_with(" This computer: The password has been changed.\r\n\r\n\\\\ARCHIVE"));
}

TEST_F(RunInterrupted, AChangeOfTheCuesDoesNotDisturbTheRun) {
    AtPump(3, [this] {
        form->ICue_Cue();
        form->ICue_UnCue();
    });
    ClickOk();
    EXPECT_TRUE(world.actions.Empty());
    EXPECT_EQ(form->Caption(), u"Password Change Results");
    EXPECT_EQ(ChangedServers().size(), 3U);
}

} // namespace kestrelmoor::tests
