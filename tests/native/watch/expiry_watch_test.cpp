#include "watch/expiry_watch.h"

#include "tests/native/forms/password_window.h"

namespace kestrelmoor::tests {

namespace {

constexpr std::int32_t kTwoWeeks = 1209600;
constexpr char kQuestion[] = "\r\n\r\nDo you want to change your password now?";
constexpr char kExpiring[] = "Your password for this computer expires in 7 days and 00 hours.";
constexpr char kArchiveRefuses[] = "The password that you logged on with is not valid for the computer "
                                   "\\\\ARCHIVE.";

/// The watch over a stand-alone server and a domain whose passwords last, and over the local computer, where
/// seven days are left, if the test makes it a target.
class Watch : public PasswordWindow {
  protected:
    Watch() {
        gReminderTime = kTwoWeeks;
        gForceWindow = false;
        Configure({u"\\\\ARCHIVE", u"PRACTICE"}, false);
        world.calls.Clear();
    }

    /// Runs the watch and takes the window that it has opened, if it has.
    void RunWatch(bool prompt) {
        RunExpiryWatch(prompt);
        Form* const opened = OnlyForm();
        form = opened ? std::dynamic_pointer_cast<frmPass>(opened->shared_from_this()) : nullptr;
    }
    void RunAndAnswer(int button) {
        world.boxes.Answer(button);
        RunWatch(true);
    }
    bool NoWindow() const {
        return Application::Current().Forms().empty() && world.calls.Count("SystemParametersInfoW") == 0;
    }

    /// Refuses the questions about the targets that come at these places.
    void Refuse(std::initializer_list<int> places) {
        for (const int nth : places)
            world.Fail("NetUserGetInfo", 5, nth);
    }
    void Expire(StringView server) { world.network.StoreAt(server)->Find(u"user")->password_expired = true; }

    static bool IsActive(std::int32_t server) { return (gActiveBits[1] >> (server - 1) & 1) != 0; }

    /// Four servers of their own, without the stock ones.
    void ConfigureFour(bool local) {
        for (const char16_t* const name : {u"ONE", u"TWO", u"THREE", u"FOUR"}) {
            world.network.computers.push_back({name, u"WORKGROUP", true, {}});
            world.network.computers.back().store.accounts.emplace_back().name = u"user";
        }
        Configure({u"\\\\ONE", u"\\\\TWO", u"\\\\THREE", u"\\\\FOUR"}, local);
    }

    void ExpectNothingNarrowed(std::int16_t servers, bool local) {
        EXPECT_FALSE(gTargetsNarrowed);
        EXPECT_EQ(gSyncLocal, local);
        for (std::int32_t server = 1; server <= servers; ++server)
            EXPECT_TRUE(IsActive(server)) << server;
    }

    Lines AskedServers() const {
        Lines servers;
        for (const practice::Call& call : world.calls.Of("NetUserGetInfo"))
            servers.push_back(ToUtf8(call.arguments.at(0)));
        return servers;
    }
};

/// The way back from a run of the narrowed window that has failed.
class SecondWatch : public Watch {
  protected:
    SecondWatch() {
        ConfigureFour(true);
        world.network.Local().store.policy.max_age = practice::kForever;
        Refuse({2, 4});
        RunAndAnswer(6);
        TypePasswords(u"wrong", kNewPassword);
        ClickOk();
        world.calls.Clear();
        world.boxes.Clear();
    }

    void GoBack() {
        ClickOk();
        form = std::dynamic_pointer_cast<frmPass>(OnlyForm()->shared_from_this());
    }
};

} // namespace

TEST_F(Watch, IsSilentWhereAllIsWell) {
    RunWatch(true);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_TRUE(NoWindow());
    EXPECT_EQ(AskedServers(), (Lines{"\\\\ARCHIVE", "\\\\DC1"}));
}

TEST_F(Watch, IsSilentWithoutAnyTarget) {
    Configure({}, false);
    RunWatch(true);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_TRUE(NoWindow());
}

TEST_F(Watch, IsSilentWhereNothingCouldBeLearned) {
    world.Fail("NetUserGetInfo", 53, 0);
    RunWatch(true);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_TRUE(NoWindow());
}

TEST_F(Watch, IsSilentOfARestrictedAccountAlone) {
    world.network.directory.present = true;
    world.network.directory.answers.push_back({u"ARCHIVE", "GetObject", 0x80070533});
    Configure({u"\\\\ARCHIVE"}, false);
    RunWatch(true);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_TRUE(NoWindow());
}

TEST_F(Watch, AsksOneBlankLineBelowTheReport) {
    Configure({u"\\\\ARCHIVE", u"PRACTICE"}, true);
    RunAndAnswer(7);
    EXPECT_EQ(Boxes(), (std::vector<ShownBox>{
                           {std::string(kExpiring) + kQuestion, 69700, "Your Password Is About to Expire"}}));
}

TEST_F(Watch, AsksOnceForAllTargets) {
    Configure({u"\\\\ARCHIVE", u"PRACTICE"}, true);
    Refuse({2});
    Expire(u"\\\\DC1");
    RunAndAnswer(7);
    EXPECT_EQ(Boxes(), (std::vector<ShownBox>{{std::string(kExpiring) + "\r\n" + kArchiveRefuses +
                                                   "\r\nYour password for the domain PRACTICE has expired." +
                                                   kQuestion,
                                               69700, "Your Password Has Expired"}}));
}

TEST_F(Watch, TellsOfARestrictedAccountAmongOthers) {
    world.network.directory.present = true;
    world.network.directory.answers = {{u"ARCHIVE", "GetObject", 0x80070533},
                                       {u"PRACTICE", "GetObject", 0x80070056}};
    RunAndAnswer(7);
    EXPECT_EQ(Boxes(), (std::vector<ShownBox>{
                           {"Your account for the computer \\\\ARCHIVE is disabled, locked or restricted. "
                            "Please ask your administrator for help.\r\n"
                            "The password that you logged on with is not valid for the domain PRACTICE." +
                                std::string(kQuestion),
                            69700, "Your Passwords Differ"}}));
}

TEST_F(Watch, AsksBeforeAWindowIsMade) {
    Expire(u"\\\\ARCHIVE");
    std::size_t made = 77;
    world.boxes.Shown = [&](const practice::Box&) { made = world.calls.Count("SystemParametersInfoW"); };
    RunAndAnswer(6);
    EXPECT_EQ(made, 0U);
    EXPECT_NE(form, nullptr);
}

TEST_F(Watch, AnyAnswerButYesChangesNothing) {
    for (const int button : {7, 2, 1, 5, 0}) {
        Refuse({1});
        RunAndAnswer(button);
        EXPECT_TRUE(NoWindow()) << button;
        ExpectNothingNarrowed(2, false);
    }
    EXPECT_EQ(Boxes().size(), 5U);
}

TEST_F(Watch, OnYesOpensTheWindowNotModally) {
    Configure({u"\\\\ARCHIVE", u"PRACTICE"}, true);
    RunAndAnswer(6);
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->Visible());
    EXPECT_EQ(Application::Current().ActiveForm(), form.get());
    EXPECT_EQ(gPassFormCount, 1);
}

TEST_F(Watch, OfAnExpiringPasswordOffersAllTargetsWithOneOldPassword) {
    Configure({u"\\\\ARCHIVE", u"PRACTICE"}, true);
    RunAndAnswer(6);
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(Targets(), (Lines{" This computer", "\\\\ARCHIVE", "PRACTICE"}));
    EXPECT_EQ(Same().Value(), 1);
    ExpectNothingNarrowed(2, true);
}

TEST_F(Watch, OfAnExpiredPasswordOffersAllTargetsWithOneOldPassword) {
    Expire(u"\\\\ARCHIVE");
    RunAndAnswer(6);
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(Targets(), (Lines{"\\\\ARCHIVE", "PRACTICE"}));
    EXPECT_EQ(Same().Value(), 1);
    ExpectNothingNarrowed(2, false);
}

TEST_F(Watch, OfOneExpiredAndAnotherInvalidKeepsAllTargetsWithAnOldPasswordForEach) {
    Expire(u"\\\\ARCHIVE");
    Refuse({2});
    RunAndAnswer(6);
    EXPECT_EQ(Boxes().at(0).title, "Your Password Has Expired");
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(Targets(), (Lines{"\\\\ARCHIVE", "PRACTICE"}));
    EXPECT_EQ(Same().Value(), 0);
    EXPECT_TRUE(List().Visible());
    ExpectNothingNarrowed(2, false);
}

TEST_F(Watch, OfOneExpiringAndAnotherInvalidKeepsAllTargetsWithAnOldPasswordForEach) {
    Configure({u"\\\\ARCHIVE", u"PRACTICE"}, true);
    Refuse({2});
    RunAndAnswer(6);
    EXPECT_EQ(Boxes().at(0).title, "Your Passwords Differ");
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(List().ListCount(), 3);
    EXPECT_EQ(Same().Value(), 0);
    ExpectNothingNarrowed(2, true);
}

TEST_F(Watch, OfAllThreeKeepsAllTargetsWithAnOldPasswordForEach) {
    Configure({u"\\\\ARCHIVE", u"PRACTICE"}, true);
    Refuse({2});
    Expire(u"\\\\DC1");
    RunAndAnswer(6);
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(List().ListCount(), 3);
    EXPECT_EQ(Same().Value(), 0);
    ExpectNothingNarrowed(2, true);
}

TEST_F(Watch, AsksForEachOldPasswordWhenTheWindowHasBeenShown) {
    Expire(u"\\\\ARCHIVE");
    Refuse({2});
    int at_load = 77;
    world.calls.Before("SetWindowProcedure",
                       [&] { at_load = OnlyForm()->Get<CheckBox>(u"chkSame").Value(); });
    RunAndAnswer(6);
    EXPECT_EQ(at_load, 1);
    EXPECT_TRUE(List().Visible());
    const Twips height = form->ClientHeight();
    form->Unload();
    Open();
    ASSERT_TRUE(user.ClickOn(At(u"chkSame")));
    EXPECT_EQ(height, form->ClientHeight());
}

TEST_F(Watch, OfTwoServersInvalidAndTheOthersInOrderOffersTheTwo) {
    ConfigureFour(true);
    world.network.Local().store.policy.max_age = practice::kForever;
    Refuse({2, 4});
    RunAndAnswer(6);
    EXPECT_EQ(Boxes().at(0).title, "Your Passwords Differ");
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(Targets(), (Lines{"\\\\ONE", "\\\\THREE"}));
    EXPECT_EQ(gActiveBits[1] & 0x0F, 0b0101);
    EXPECT_FALSE(gSyncLocal);
    EXPECT_TRUE(gTargetsNarrowed);
    EXPECT_EQ(Same().Value(), 1);
}

TEST_F(Watch, TheLocalComputerNeverSurvivesTheNarrowing) {
    Configure({u"\\\\ARCHIVE", u"PRACTICE"}, true);
    Refuse({1, 2});
    RunAndAnswer(6);
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(Targets(), Lines{"\\\\ARCHIVE"});
    EXPECT_FALSE(gSyncLocal);
    EXPECT_TRUE(gTargetsNarrowed);
}

TEST_F(Watch, OfTheLocalComputerInvalidAloneOpensAWindowWithoutAnyTarget) {
    Configure({u"\\\\ARCHIVE", u"PRACTICE"}, true);
    Refuse({1});
    RunAndAnswer(6);
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->Visible());
    EXPECT_EQ(Targets(), Lines{});
    EXPECT_FALSE(gSyncLocal);
    EXPECT_TRUE(gTargetsNarrowed);
    EXPECT_EQ(gActiveBits[1] & 0x03, 0);
}

TEST_F(Watch, AServerThatWasNotActiveStaysSo) {
    ConfigureFour(false);
    gActiveBits[1] = 0b1101;
    Refuse({2});
    RunAndAnswer(6);
    EXPECT_EQ(gActiveBits[1] & 0x0F, 0b0100);
    EXPECT_EQ(Targets(), Lines{"\\\\THREE"});
}

TEST_F(Watch, MakesTheWindowAheadOfTheNarrowingAndShowsItBehind) {
    Refuse({1});
    bool narrowed_when_made = true;
    bool narrowed_when_shown = false;
    std::uint8_t bits_when_made = 0;
    world.calls.Before("SystemParametersInfoW", [&] {
        narrowed_when_made = gTargetsNarrowed;
        bits_when_made = gActiveBits[1];
    });
    world.calls.Before("IsAppThemed", [&] { narrowed_when_shown = gTargetsNarrowed; });
    RunAndAnswer(6);
    EXPECT_FALSE(narrowed_when_made);
    EXPECT_EQ(bits_when_made, 0xFF);
    EXPECT_TRUE(narrowed_when_shown);
}

TEST_F(Watch, TheNarrowingLiesInMemoryOnly) {
    Refuse({1});
    RunAndAnswer(6);
    EXPECT_TRUE(gTargetsNarrowed);
    EXPECT_EQ(CallsOf({"RegSetValueExW", "RegCreateKeyExW", "RegDeleteValueW"}), Lines{});
}

TEST_F(Watch, WithoutThePromptOpensTheWindowThoughAllIsWell) {
    RunWatch(false);
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(AskedServers(), (Lines{"\\\\ARCHIVE", "\\\\DC1"}));
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_EQ(Targets(), (Lines{"\\\\ARCHIVE", "PRACTICE"}));
    ExpectNothingNarrowed(2, false);
}

TEST_F(Watch, WithoutThePromptAsksNothingOfAnExpiredPassword) {
    Expire(u"\\\\ARCHIVE");
    RunWatch(false);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(Same().Value(), 1);
}

TEST_F(Watch, WithoutThePromptNarrowsAndAsksForEachAllTheSame) {
    ConfigureFour(false);
    Refuse({2, 3});
    RunWatch(false);
    EXPECT_EQ(Targets(), (Lines{"\\\\THREE", "\\\\TWO"}));
    EXPECT_TRUE(gTargetsNarrowed);
    form->Unload();
    Expire(u"\\\\TWO");
    Refuse({2});
    RunWatch(false);
    EXPECT_EQ(Same().Value(), 0);
}

TEST_F(Watch, AReminderTooLongIsAnErrorThatIsNotTrapped) {
    world.network.directory.present = true;
    gReminderTime = 117964800;
    Configure({}, true);
    const auto error = Raised([this] { RunWatch(true); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 6);
    EXPECT_EQ(error->description(), u"Overflow");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_TRUE(NoWindow());
}

TEST_F(Watch, AReadThatFailsIsAnErrorThatIsNotTrapped) {
    world.network.directory.present = true;
    EXPECT_EQ(static_cast<std::uint32_t>(RaisedNumber([this] { RunWatch(true); })), 0x8000500DU);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_TRUE(NoWindow());
}

TEST_F(SecondWatch, AsksTheTargetsThatAreLeftWithoutAQuestion) {
    GoBack();
    EXPECT_EQ(AskedServers(), (Lines{"\\\\ONE", "\\\\THREE"}));
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(SecondWatch, KeepsTheNarrowedTargetsThoughAllIsWellNow) {
    GoBack();
    EXPECT_EQ(Targets(), (Lines{"\\\\ONE", "\\\\THREE"}));
    EXPECT_TRUE(gTargetsNarrowed);
    EXPECT_FALSE(gSyncLocal);
}

TEST_F(SecondWatch, NarrowsTheTargetsFurther) {
    Refuse({2});
    GoBack();
    EXPECT_EQ(Targets(), Lines{"\\\\THREE"});
    EXPECT_EQ(gActiveBits[1] & 0x0F, 0b0100);
    EXPECT_TRUE(gTargetsNarrowed);
}

TEST_F(SecondWatch, IsMadeWhenTheFormerWindowIsGone) {
    std::size_t windows = 77;
    world.calls.Before("NetUserGetInfo", [&] { windows = Application::Current().Forms().size(); });
    GoBack();
    EXPECT_EQ(windows, 0U);
}

TEST_F(SecondWatch, IsNotMadeOfAWindowThatWasAskedFor) {
    gForceWindow = true;
    GoBack();
    EXPECT_EQ(AskedServers(), Lines{});
}

} // namespace kestrelmoor::tests
