#include "tests/native/forms/password_window.h"

namespace kestrelmoor::tests {

namespace {

class ChangeRun : public PasswordWindow {
  protected:
    ChangeRun() { ConfigureAll(); }

    /// What the record shows of the password calls: server, old and new password.
    Lines PasswordCalls() const { return CallsOf({"NetUserChangePassword"}); }
};

} // namespace

TEST_F(ChangeRun, EachTargetHasItsParagraphInTheListsOrder) {
    Run();
    EXPECT_EQ(Status(), " This computer: The password has been changed.\r\n\r\n"
                        "\\\\ARCHIVE: The password has been changed.\r\n\r\n"
                        "PRACTICE: The password has been changed.\r\n\r\n"
                        "The password that you logged on with has been changed. Please save your work in "
                        "other programs. When you close this window, you are logged off, and can then log "
                        "on with the new password.");
    EXPECT_EQ(Box(u"txtStatus").SelStart(), static_cast<int>(Box(u"txtStatus").Text().size()));
}

TEST_F(ChangeRun, ThePasswordsHaveReallyChanged) {
    Run();
    EXPECT_EQ(world.network.Local().store.Find(u"user")->password, kNewPassword);
    EXPECT_EQ(world.network.FindComputer(u"ARCHIVE")->store.Find(u"user")->password, kNewPassword);
    EXPECT_EQ(world.network.FindDomain(u"PRACTICE")->store.Find(u"user")->password, kNewPassword);
}

TEST_F(ChangeRun, WhatTheDirectoryHasChangedIsNotAskedOfTheNetworkToo) {
    world.network.directory.present = true;
    Run();
    EXPECT_EQ(PasswordCalls(), Lines{});
    EXPECT_EQ(world.network.FindComputer(u"ARCHIVE")->store.Find(u"user")->password, kNewPassword);
}

TEST_F(ChangeRun, EventsArePumpedOnceAtTheClickAndOnceBeforeEachTarget) {
    Open();
    TypePasswords(kOldPassword, kNewPassword);
    world.calls.Clear();
    ClickOk();
    Lines names;
    for (const std::string& name : Names())
        if (name == "PumpEvents" || name == "NetUserChangePassword")
            names.push_back(name);
    EXPECT_EQ(names, (Lines{"PumpEvents", "PumpEvents", "NetUserChangePassword", "PumpEvents",
                            "NetUserChangePassword", "PumpEvents", "NetUserChangePassword"}));
}

TEST_F(ChangeRun, TheServerOfEachTargetIsFoundAheadOfItsPasswordCall) {
    Open();
    TypePasswords(kOldPassword, kNewPassword);
    world.calls.Clear();
    ClickOk();
    EXPECT_EQ(world.calls.Count("DsGetDcNameW"), 0U);
    EXPECT_EQ(world.calls.Count("AdjustTokenPrivileges"), 3U);
    Lines names;
    for (const std::string& name : Names())
        if (name.starts_with("Net") || name == "GetObject")
            names.push_back(name);
    constexpr std::ptrdiff_t kOfTheCheck = 8;
    ASSERT_EQ(names.size(), 17U);
    const auto run = names.begin() + kOfTheCheck;
    EXPECT_EQ(Lines(names.begin(), run),
              (Lines{"NetWkstaGetInfo", "GetObject", "NetUserModalsGet", "GetObject", "NetUserModalsGet",
                     "GetObject", "NetGetDCName", "NetUserModalsGet"}));
    EXPECT_EQ(Lines(run, names.end()),
              (Lines{"NetWkstaGetInfo", "GetObject", "NetWkstaGetInfo", "NetUserChangePassword", "GetObject",
                     "NetUserChangePassword", "GetObject", "NetGetDCName", "NetUserChangePassword"}));
}

TEST_F(ChangeRun, TheStatusGrowsParagraphByParagraph) {
    Lines seen;
    for (const int nth : {1, 2, 3})
        AtPasswordCall(nth, [&] { seen.push_back(Status()); });
    Run();
    EXPECT_EQ(seen, (Lines{"", " This computer: The password has been changed.",
                           " This computer: The password has been changed.\r\n\r\n"
                           "\\\\ARCHIVE: The password has been changed."}));
}

TEST_F(ChangeRun, EqualPasswordsAreToldWithoutACall) {
    Run(kOldPassword, kOldPassword);
    EXPECT_EQ(PasswordCalls(), Lines{});
    EXPECT_EQ(Status(), " This computer: The password has not been changed. The new password is the same as "
                        "the old one. Please choose a different one.\r\n\r\n"
                        "\\\\ARCHIVE: The password has not been changed. The new password is the same as the "
                        "old one. Please choose a different one.\r\n\r\n"
                        "PRACTICE: The password has not been changed. The new password is the same as the "
                        "old one. Please choose a different one.");
}

TEST_F(ChangeRun, PasswordsThatDifferInCaseAreDifferent) {
    Run(kOldPassword, u"old-password-1");
    EXPECT_EQ(PasswordCalls().size(), 3U);
}

TEST_F(ChangeRun, PasswordsThatTheLanguageTakesAsEqualAreDifferent) {
    LiftPolicies();
    Run(u"co-op", u"coop");
    EXPECT_EQ(PasswordCalls().size(), 3U);
}

TEST_F(ChangeRun, AnEmptyOldPasswordIsPassedOn) {
    Open();
    TypeInto(u"txtNewPass", kNewPassword);
    TypeInto(u"txtConfirm", kNewPassword);
    ClickOk();
    const auto calls = world.calls.Of("NetUserChangePassword");
    ASSERT_EQ(calls.size(), 3U);
    EXPECT_EQ(calls[0].arguments.at(1), world.calls.MarkOf(u""));
    EXPECT_EQ(calls[0].arguments.at(2), world.calls.MarkOf(kNewPassword));
}

TEST_F(ChangeRun, InTheListModeATargetWithoutAnOldPasswordIsTriedWithAnEmptyOne) {
    Open();
    TypePasswords(kOldPassword, kNewPassword);
    Same().SetValue(0);
    ClickOk();
    const auto calls = world.calls.Of("NetUserChangePassword");
    ASSERT_EQ(calls.size(), 3U);
    for (const practice::Call& call : calls)
        EXPECT_EQ(call.arguments.at(1), world.calls.MarkOf(u""));
    EXPECT_EQ(Status().substr(0, 72),
              " This computer: The password has not been changed. Error 86: system 86\r\n");
}

TEST_F(ChangeRun, TheOldPasswordIsTakenOnceAndTheNewOneForEachTarget) {
    AtPasswordCall(1, [this] {
        Box(u"txtOldPass").SetText(u"changed meanwhile");
        Box(u"txtNewPass").SetText(u"Third-Password-3");
    });
    Run();
    const auto calls = world.calls.Of("NetUserChangePassword");
    ASSERT_EQ(calls.size(), 3U);
    const String old_mark = world.calls.MarkOf(kOldPassword);
    const String third_mark = world.calls.MarkOf(u"Third-Password-3");
    EXPECT_EQ(calls[0].arguments.at(2), world.calls.MarkOf(kNewPassword));
    EXPECT_EQ(calls[1].arguments.at(1), old_mark);
    EXPECT_EQ(calls[1].arguments.at(2), third_mark);
    EXPECT_EQ(calls[2].arguments.at(1), old_mark);
    EXPECT_EQ(calls[2].arguments.at(2), third_mark);
}

TEST_F(ChangeRun, RowsThatComeDuringTheRunAreNotTargets) {
    AtPasswordCall(1, [this] { List().AddItem(u"ZEBRA"); });
    Run();
    EXPECT_EQ(List().ListCount(), 4);
    EXPECT_EQ(Status().find("ZEBRA"), std::string::npos);
}

TEST_F(ChangeRun, AMaskBehindTheNameIsNoPartOfTheTarget) {
    Open();
    TypePasswords(kOldPassword, kNewPassword);
    List().SetList(1, u"\\\\ARCHIVE\t********");
    ClickOk();
    EXPECT_EQ(ChangedServers(), (Lines{"\\\\WORKBENCH", "\\\\ARCHIVE", "\\\\DC1"}));
    EXPECT_NE(Status().find("\r\n\\\\ARCHIVE: The password has been changed.\r\n"), std::string::npos);
}

TEST_F(ChangeRun, AWrongOldPasswordIsAParagraphAndTheRunGoesOn) {
    world.network.FindComputer(u"ARCHIVE")->store.Find(u"user")->password = u"another";
    Run();
    EXPECT_EQ(Status().substr(0, 180),
              " This computer: The password has been changed.\r\n\r\n"
              "\\\\ARCHIVE: The password has not been changed. Error 86: system 86\r\n\r\n"
              "PRACTICE: The password has been changed.\r\n\r\nThe password that");
}

TEST_F(ChangeRun, ARefusedNewPasswordIsAParagraph) {
    Configure({u"PRACTICE"}, false);
    Run(kOldPassword, u"plainplain");
    EXPECT_EQ(Status(), "PRACTICE: The password has not been changed. Error 2245: network 2245");
}

TEST_F(ChangeRun, AServerThatIsNotThereIsAParagraph) {
    Configure({u"\\\\NOWHERE"}, false);
    Run();
    EXPECT_EQ(Status(), "\\\\NOWHERE: The password has not been changed. Error 53: system 53");
}

TEST_F(ChangeRun, ADomainWithoutAControllerIsAParagraphAndNoPasswordCall) {
    Configure({u"ELSEWHERE", u"PRACTICE"}, false);
    // Two look-ups for the policies come ahead of it.
    world.Fail("NetGetDCName", 53, 3);
    Run();
    EXPECT_EQ(ChangedServers(), Lines{"\\\\DC1"});
    EXPECT_EQ(Status(), "ELSEWHERE: The password has not been changed. Error 53: system 53\r\n\r\n"
                        "PRACTICE: The password has been changed.");
}

TEST_F(ChangeRun, AComputerThatCantTellItsNameIsAParagraphAndNoPasswordCall) {
    Configure({u"\\\\ARCHIVE"}, true);
    world.Fail("NetWkstaGetInfo", 5, 0);
    Run();
    EXPECT_EQ(ChangedServers(), Lines{"\\\\ARCHIVE"});
    EXPECT_EQ(Status(), " This computer: The password has not been changed. Error 5: system 5\r\n\r\n"
                        "\\\\ARCHIVE: The password has been changed.");
}

TEST_F(ChangeRun, APrivilegeThatIsNotHeldDoesNotStopTheChange) {
    Configure({u"\\\\ARCHIVE"}, false);
    world.machine.privileges_assigned = false;
    Run();
    EXPECT_EQ(Status(), "\\\\ARCHIVE: The password has been changed.");
}

TEST_F(ChangeRun, EachPasswordCallFailsForItsOwnTargetAlone) {
    const Lines names{" This computer", "\\\\ARCHIVE", "PRACTICE"};
    world.Fail("NetUserChangePassword", 0, 0);
    for (int nth = 1; nth <= 3; ++nth) {
        world.Fail("NetUserChangePassword", 5, nth);
        Run();
        for (int target = 1; target <= 3; ++target) {
            const std::string failed = names[static_cast<std::size_t>(target - 1)] +
                                       ": The password has not been changed. Error 5: system 5";
            EXPECT_EQ(Status().find(failed) != std::string::npos, target == nth) << nth << ' ' << target;
        }
        user.CloseWindow(*form);
    }
}

TEST_F(ChangeRun, WhileDiagnosingAParagraphNamesTheCall) {
    Configure({u"\\\\NOWHERE"}, false);
    StartDiagnosing();
    Run();
    EXPECT_EQ(Status(), "\\\\NOWHERE: The password has not been changed. NetUserChangePassword failed with "
                        "error 53: system 53");
    EXPECT_EQ(Log(), (Lines{"Information: -> GetObject \"WinNT://NOWHERE/user,user\"",
                            "Error: GetObject failed with error -2147221020: Invalid syntax",
                            "Information: -> NetUserModalsGet \"\\\\NOWHERE\"",
                            "Error: NetUserModalsGet failed with error 53: system 53",
                            "Information: -> GetObject \"WinNT://NOWHERE/user,user\"",
                            "Error: GetObject failed with error -2147221020: Invalid syntax",
                            "Information: -> OpenProcessToken",
                            "Information: -> LookupPrivilegeValue \"SeChangeNotifyPrivilege\"",
                            "Information: -> AdjustTokenPrivileges",
                            "Information: -> NetUserChangePassword \"\\\\NOWHERE\"",
                            "Error: NetUserChangePassword failed with error 53: system 53"}));
}

TEST_F(ChangeRun, WithoutTargetsTheRunEndsAtOnce) {
    Configure({}, false);
    Run();
    EXPECT_EQ(Status(), "");
    EXPECT_EQ(form->Caption(), u"Password Change Results");
    EXPECT_FALSE(At(u"cmdOK").Enabled());
    EXPECT_TRUE(At(u"cmdCancel").Enabled());
    EXPECT_EQ(CaptionOf(u"cmdCancel"), "OK");
    user.ClickOn(At(u"cmdCancel"));
    EXPECT_TRUE(world.session_ends.empty());
}

TEST_F(ChangeRun, ParagraphsHoldPercentSignsAsTheyStand) {
    Configure({u"\\\\NOWHERE%2"}, false);
    Run();
    EXPECT_EQ(Status(), "\\\\NOWHERE%2: The password has not been changed. Error 53: system 53");
}

} // namespace kestrelmoor::tests
