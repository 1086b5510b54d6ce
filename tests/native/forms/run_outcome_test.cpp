#include "tests/native/forms/password_window.h"

namespace kestrelmoor::tests {

namespace {

class RunOutcome : public PasswordWindow {
  protected:
    void ExpectDone() {
        EXPECT_FALSE(At(u"cmdOK").Enabled());
        EXPECT_TRUE(At(u"cmdCancel").Enabled());
        EXPECT_EQ(CaptionOf(u"cmdCancel"), "OK");
        EXPECT_EQ(form->DefaultButton(), &At(u"cmdCancel"));
        EXPECT_EQ(Status().find("logged off"), std::string::npos);
    }
    void ExpectFailed() {
        EXPECT_TRUE(At(u"cmdOK").Enabled());
        EXPECT_EQ(form->ActiveControl(), &At(u"cmdOK"));
        EXPECT_EQ(CaptionOf(u"cmdOK"), "&Back");
        EXPECT_TRUE(At(u"cmdCancel").Enabled());
        EXPECT_EQ(CaptionOf(u"cmdCancel"), "OK");
        EXPECT_EQ(form->DefaultButton(), &At(u"cmdCancel"));
        EXPECT_EQ(Status().find("logged off"), std::string::npos);
    }
    void ExpectLogOffPending() {
        EXPECT_FALSE(At(u"cmdOK").Enabled());
        EXPECT_TRUE(At(u"cmdCancel").Enabled());
        EXPECT_EQ(CaptionOf(u"cmdCancel"), "&Log Off");
        EXPECT_TRUE(Status().ends_with("\r\n\r\nThe password that you logged on with has been changed. "
                                       "Please save your work in other programs. When you close this window, "
                                       "you are logged off, and can then log on with the new password."));
    }
    /// Closes the window and says how the session was ended.
    Lines SessionEndsAfterClosing() {
        user.CloseWindow(*form);
        EXPECT_TRUE(form->IsUnloaded());
        return CallsOf({"ExitWindowsEx"});
    }
};

const Lines kLoggedOff{"ExitWindowsEx(\"0\", \"0\")"};

} // namespace

TEST_F(RunOutcome, SuccessOnAPlainServerIsDone) {
    Configure({u"\\\\ARCHIVE"}, false);
    Run();
    ExpectDone();
    EXPECT_EQ(SessionEndsAfterClosing(), Lines{});
}

TEST_F(RunOutcome, SuccessOnADomainThatIsNotTheUsersIsDone) {
    gDomainName = u"OTHER";
    Configure({u"PRACTICE"}, false);
    Run();
    ExpectDone();
    EXPECT_EQ(SessionEndsAfterClosing(), Lines{});
}

TEST_F(RunOutcome, SuccessOnTheLocalComputerLogsOff) {
    Configure({}, true);
    Run();
    ExpectLogOffPending();
    EXPECT_EQ(SessionEndsAfterClosing(), kLoggedOff);
}

TEST_F(RunOutcome, SuccessOnTheUsersDomainLogsOff) {
    gDomainName = u"PRACTICE";
    Configure({u"\\\\ARCHIVE", u"PRACTICE"}, false);
    Run();
    ExpectLogOffPending();
    EXPECT_EQ(SessionEndsAfterClosing(), kLoggedOff);
}

TEST_F(RunOutcome, TheUsersDomainIsKnownInAnotherCase) {
    gDomainName = u"PRACTICE";
    Configure({u"Practice"}, false);
    Run();
    ExpectLogOffPending();
}

TEST_F(RunOutcome, AServerOfTheDomainsNameIsNotTheDomain) {
    gDomainName = u"ARCHIVE";
    Configure({u"\\\\ARCHIVE"}, false);
    Run();
    ExpectDone();
}

TEST_F(RunOutcome, AFailureOnTheUsersDomainDoesNotLogOff) {
    gDomainName = u"PRACTICE";
    Configure({u"PRACTICE"}, false);
    Run(u"wrong");
    ExpectFailed();
    EXPECT_EQ(SessionEndsAfterClosing(), Lines{});
}

TEST_F(RunOutcome, AFailureOnTheLocalComputerDoesNotLogOff) {
    Configure({}, true);
    Run(u"wrong");
    ExpectFailed();
    EXPECT_EQ(SessionEndsAfterClosing(), Lines{});
}

TEST_F(RunOutcome, OneFailureAmongSuccessesIsFailed) {
    Configure({u"\\\\ARCHIVE", u"\\\\NOWHERE", u"PRACTICE"}, false);
    Run();
    ExpectFailed();
}

TEST_F(RunOutcome, AFailureIsNotForgottenByALaterSuccess) {
    Configure({u"\\\\ARCHIVE", u"PRACTICE"}, false);
    world.network.FindComputer(u"ARCHIVE")->store.Find(u"user")->locked = true;
    Run();
    ExpectFailed();
}

TEST_F(RunOutcome, ALogOffTakesPrecedenceOverAFailure) {
    Configure({u"\\\\NOWHERE"}, true);
    Run();
    ExpectLogOffPending();
    EXPECT_EQ(SessionEndsAfterClosing(), kLoggedOff);
}

TEST_F(RunOutcome, EqualPasswordsAreNeitherFailureNorSuccess) {
    gDomainName = u"PRACTICE";
    Configure({u"PRACTICE"}, true);
    Run(kOldPassword, kOldPassword);
    ExpectDone();
    EXPECT_EQ(SessionEndsAfterClosing(), Lines{});
}

TEST_F(RunOutcome, TheLastButtonEscapeAndTheCloseBoxLogOffAlike) {
    for (const int way : {0, 1, 2}) {
        world.network.Local().store.Find(u"user")->password = kOldPassword;
        world.calls.Clear();
        Configure({}, true);
        Run();
        if (way == 0)
            user.ClickOn(At(u"cmdCancel"));
        else if (way == 1)
            user.Press(key::kEscape);
        else
            user.CloseWindow(*form);
        EXPECT_TRUE(form->IsUnloaded()) << way;
        EXPECT_EQ(CallsOf({"ExitWindowsEx"}), kLoggedOff) << way;
    }
}

TEST_F(RunOutcome, CancelIsEnabledAtTheEndInAnyCase) {
    Configure({u"\\\\ARCHIVE"}, false);
    Open();
    TypePasswords(kOldPassword, kNewPassword);
    At(u"cmdCancel").SetEnabled(false);
    ClickOk();
    EXPECT_TRUE(At(u"cmdCancel").Enabled());
}

TEST_F(RunOutcome, EnterClosesAFinishedWindow) {
    Configure({u"\\\\ARCHIVE"}, false);
    Run();
    user.Press(key::kReturn);
    EXPECT_TRUE(form->IsUnloaded());
}

TEST_F(RunOutcome, WhetherTheLogOffSucceedsIsNotLookedAt) {
    Configure({}, true);
    world.Fail("ExitWindowsEx", 5);
    Run();
    EXPECT_EQ(SessionEndsAfterClosing(), kLoggedOff);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_TRUE(Application::Current().Forms().empty());
}

TEST_F(RunOutcome, NothingIsAskedBeforeTheLogOff) {
    Configure({}, true);
    Run();
    SessionEndsAfterClosing();
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(RunOutcome, ThePasswordsStayInTheirHiddenBoxesUntilTheWindowGoes) {
    Configure({u"\\\\ARCHIVE"}, false);
    Run();
    EXPECT_EQ(Box(u"txtOldPass").Text(), kOldPassword);
    EXPECT_EQ(Box(u"txtNewPass").Text(), kNewPassword);
    EXPECT_EQ(Box(u"txtConfirm").Text(), kNewPassword);
    EXPECT_FALSE(At(u"txtOldPass").Visible());
}

} // namespace kestrelmoor::tests
