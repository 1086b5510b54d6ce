#include "tests/native/secrets/secrets.h"

namespace kestrelmoor::tests {

namespace {

constexpr char kChangedOnAll[] = " This computer: The password has been changed.\r\n\r\n"
                                 "\\\\ARCHIVE: The password has been changed.\r\n\r\n"
                                 "PRACTICE: The password has been changed.";

} // namespace

TEST_F(Secrets, LeaveNoTraceInARunThatSucceeds) {
    Run(kMarkedOld, kMarkedNew);
    EXPECT_TRUE(Status().starts_with(kChangedOnAll)) << Status();
    EXPECT_EQ(world.network.Local().store.Find(u"user")->password, kMarkedNew);
    EXPECT_GE(Log().size(), 12U);
    EXPECT_GE(search.Looks(), 100);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceInARunThatFails) {
    Run(kMarkedWrong, kMarkedNew);
    EXPECT_NE(Status().find("system 86"), std::string::npos);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceWhateverAServerAnswers) {
    for (const std::uint32_t code :
         {5U, 53U, 64U, 86U, 1323U, 1326U, 1331U, 1909U, 2221U, 2242U, 2245U, 0xFFFFFFFFU}) {
        world.Fail("NetUserChangePassword", code, 0);
        Run(kMarkedOld, kMarkedNew);
        EXPECT_EQ(Status().find("has been changed"), std::string::npos) << code;
        EXPECT_EQ(ChangedServers().size(), 3U);
        form->Unload();
        world.calls.Clear();
    }
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceOnRestrictedAccounts) {
    world.network.StoreAt(u"\\\\WORKBENCH")->Find(u"user")->cannot_change_password = true;
    world.network.StoreAt(u"\\\\ARCHIVE")->Find(u"user")->locked = true;
    world.network.StoreAt(u"\\\\DC1")->Find(u"user")->disabled = true;
    Run(kMarkedOld, kMarkedNew);
    EXPECT_EQ(ChangedServers().size(), 3U);
    EXPECT_EQ(Status().find("has been changed"), std::string::npos);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceWhereNothingCanBeReached) {
    world.network.FindComputer(u"ARCHIVE")->reachable = false;
    world.Fail("NetGetDCName", 2453, 0);
    world.Fail("DsGetDcNameW", 1355, 0);
    Run(kMarkedOld, kMarkedNew);
    EXPECT_EQ(ChangedServers(), (Lines{"\\\\WORKBENCH", "\\\\ARCHIVE"}));
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceThroughTheDirectory) {
    InstallDirectory();
    Run(kMarkedOld, kMarkedNew);
    EXPECT_TRUE(Status().starts_with(kChangedOnAll)) << Status();
    EXPECT_EQ(world.calls.Count("IADsUser.ChangePassword"), 3U);
    EXPECT_EQ(world.calls.Count("NetUserChangePassword"), 0U);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceWhateverTheDirectoryAnswers) {
    InstallDirectory();
    for (const std::uint32_t code :
         {0x80070005U, 0x80070056U, 0x80070533U, 0x800708C5U, 0x80004005U, 0x80020009U}) {
        for (const char* const member : {"GetObject", "ChangePassword"})
            for (const bool diagnosing : {false, true}) {
                gLogging = diagnosing;
                world.network.directory.answers = {{u"ARCHIVE", member, code, u"The service says no.", {}}};
                SetPassword(u"\\\\ARCHIVE", kMarkedWrong);
                Run(kMarkedOld, kMarkedNew);
                EXPECT_NE(Status().find("\\\\ARCHIVE: The password has not been changed."),
                          std::string::npos);
                form->Unload();
            }
    }
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceInARunOfEqualPasswords) {
    Run(kMarkedOld, kMarkedOld);
    EXPECT_EQ(ChangedServers(), Lines{});
    EXPECT_NE(Status().find("the same as the old one"), std::string::npos) << Status();
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceWhereTheConfirmationDiffers) {
    Open();
    TypePasswords(kMarkedOld, kMarkedNew);
    Box(u"txtConfirm").SetText(kMarkedWrong);
    ClickOk();
    EXPECT_EQ(Boxes().size(), 1U);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceWhereTheNewOneIsTooShort) {
    world.network.Local().store.policy.min_length = 20;
    Run(kMarkedOld, kMarkedNew);
    EXPECT_EQ(Boxes().size(), 1U);
    EXPECT_EQ(ChangedServers(), Lines{});
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceWhereTheyAreLongerThanAnyPolicy) {
    const String rest(300, u'x');
    Run(kMarkedOld + rest, kMarkedNew + rest);
    EXPECT_EQ(ChangedServers().size(), 3U);
    EXPECT_NE(Status().find("system 86"), std::string::npos);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceWithCharactersThatAreOddInTexts) {
    SetPassword(u"\\\\WORKBENCH", kMarkedOdd);
    Open();
    // As pasted: the keyboard has not all of them.
    Box(u"txtOldPass").Edited(kMarkedOdd);
    for (const char16_t* const name : {u"txtNewPass", u"txtConfirm"})
        Box(name).Edited(String(kMarkedOdd) + kMarkedNew);
    ClickOk();
    EXPECT_TRUE(Status().starts_with(" This computer: The password has been changed.")) << Status();
    EXPECT_NE(Status().find("system 86"), std::string::npos);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceWithAnOldPasswordForEachTarget) {
    SetPassword(u"\\\\ARCHIVE", kMarkedOfArchive);
    SetPassword(u"\\\\DC1", kMarkedOfDomain);
    OpenRows();
    TypeOldOfEach(kMarkedOld, kMarkedOfArchive, kMarkedOfDomain);
    EXPECT_EQ(Rows(),
              (Lines{Masked(" This computer", 12), Masked("\\\\ARCHIVE", 12), Masked("PRACTICE", 12)}));
    TypeNew(kMarkedNew);
    ClickOk();
    EXPECT_TRUE(Status().starts_with(kChangedOnAll)) << Status();
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceInARowThatIsEditedAgain) {
    OpenRows();
    TypeOldOfEach(kMarkedOld, kMarkedWrong, kMarkedOfDomain);
    TypeOld(1, kMarkedOfArchive);
    for (const int key : {key::kUp, key::kDown, key::kDown, key::kPageUp, key::kPageDown})
        user.Press(key);
    user.ScrollTo(List(), 1);
    Edit(2);
    InPlace().SetSelStart(0);
    InPlace().SetSelLength(12);
    user.Press(key::kBack);
    Leave();
    EXPECT_EQ(Rows(), (Lines{Masked(" This computer", 12), Masked("\\\\ARCHIVE", 12), Masked("PRACTICE")}));
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceOnTheWayFromModeToMode) {
    Open();
    TypePasswords(kMarkedOld, kMarkedNew);
    for (int turn = 0; turn < 2; ++turn) {
        user.ClickOn(Same());
        TypeOldOfEach(kMarkedOld, kMarkedOfArchive, kMarkedOfDomain);
        Edit(1);
        user.ClickOn(Same());
        EXPECT_EQ(Box(u"txtOldPass").Text(), kMarkedOld);
    }
    ClickOk();
    EXPECT_TRUE(Status().starts_with(kChangedOnAll)) << Status();
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceInTheOtherMode) {
    Open();
    TypePasswords(kMarkedOld, kMarkedNew);
    Same().SetValue(0);
    ExpectNoTrace();
    ClickOk();
    EXPECT_EQ(ChangedServers().size(), 3U);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceOnTheWayBack) {
    Configure({u"\\\\ARCHIVE", u"PRACTICE"}, false);
    Run(kMarkedWrong, kMarkedNew);
    ClickOk();
    ASSERT_NE(OnlyForm(), nullptr);
    ASSERT_NE(OnlyForm(), form.get());
    TakeWindow();
    for (const char16_t* name : {u"txtOldPass", u"txtNewPass", u"txtConfirm"})
        EXPECT_EQ(Box(name).Text(), u"") << ToUtf8(name);
    ExpectNoTrace();
    TypePasswords(kMarkedOld, kMarkedNew);
    ClickOk();
    EXPECT_NE(Status().find("has been changed"), std::string::npos);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceAtTheLogOff) {
    Run(kMarkedOld, kMarkedNew);
    user.CloseWindow(*form);
    EXPECT_EQ(world.session_ends.size(), 1U);
    ExpectNoTrace();
}

TEST_F(Secrets, StandInTheHiddenBoxesAsLongAsTheResultsAreRead) {
    Run(kMarkedOld, kMarkedNew);
    EXPECT_EQ(form->Caption(), u"Password Change Results");
    for (const char16_t* const name : {u"txtOldPass", u"txtNewPass", u"txtConfirm"}) {
        EXPECT_FALSE(Box(name).Visible());
        EXPECT_FALSE(Box(name).PasswordChar().empty());
        EXPECT_EQ(Box(name).Text(), Box(name).Name() == u"txtOldPass" ? kMarkedOld : kMarkedNew);
    }
}

TEST_F(Secrets, LeaveNoTraceInAWindowThatIsCancelled) {
    Open();
    TypePasswords(kMarkedOld, kMarkedNew);
    ExpectNoTrace();
    user.Press(key::kEscape);
    EXPECT_TRUE(form->IsUnloaded());
    ExpectNoTrace();
}

} // namespace kestrelmoor::tests
