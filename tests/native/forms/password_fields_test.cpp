#include "tests/native/forms/password_window.h"

namespace kestrelmoor::tests {

namespace {

constexpr int kDelete = 46;

class PasswordFields : public PasswordWindow {
  protected:
    PasswordFields() {
        ConfigureAll();
        Open();
    }

    void SelectAllAndDelete(StringView name) {
        ASSERT_TRUE(user.ClickOn(At(name)));
        Box(name).SetSelStart(0);
        Box(name).SetSelLength(static_cast<int>(Box(name).Text().size()));
        ASSERT_TRUE(user.Press(kDelete));
    }

    bool OkEnabled() { return At(u"cmdOK").Enabled(); }
};

const ShownBox kMismatch =
    Exclamation("The new password and its confirmation are not the same. Please type both again.");

} // namespace

TEST_F(PasswordFields, OkIsDisabledWhileOldAndNewAreEmpty) {
    EXPECT_FALSE(OkEnabled());
    TypeInto(u"txtNewPass", u"x");
    SelectAllAndDelete(u"txtNewPass");
    EXPECT_FALSE(OkEnabled());
}

TEST_F(PasswordFields, AnOldPasswordAloneEnablesOk) {
    TypeInto(u"txtOldPass", u"x");
    EXPECT_TRUE(OkEnabled());
    SelectAllAndDelete(u"txtOldPass");
    EXPECT_FALSE(OkEnabled());
}

TEST_F(PasswordFields, ANewPasswordAloneEnablesOk) {
    TypeInto(u"txtNewPass", u"x");
    EXPECT_TRUE(OkEnabled());
}

TEST_F(PasswordFields, OneOfTheTwoIsEnough) {
    TypeInto(u"txtOldPass", u"old");
    TypeInto(u"txtNewPass", u"new");
    SelectAllAndDelete(u"txtOldPass");
    EXPECT_TRUE(OkEnabled());
    SelectAllAndDelete(u"txtNewPass");
    EXPECT_FALSE(OkEnabled());
}

TEST_F(PasswordFields, TheConfirmationDoesNotEnableOk) {
    TypeInto(u"txtConfirm", u"x");
    EXPECT_FALSE(OkEnabled());
}

TEST_F(PasswordFields, InTheListModeAnOldPasswordOfTheSingleModeDoesNotCount) {
    TypeInto(u"txtOldPass", u"old");
    user.ClickOn(Same());
    EXPECT_FALSE(OkEnabled());
    user.ClickOn(Same());
    EXPECT_TRUE(OkEnabled());
}

TEST_F(PasswordFields, InTheListModeANewPasswordEnablesOk) {
    Same().SetValue(0);
    TypeInto(u"txtNewPass", u"x");
    EXPECT_TRUE(OkEnabled());
}

TEST_F(PasswordFields, AHiddenOldPasswordBoxLeavesOkAsItIs) {
    Same().SetValue(0);
    ASSERT_FALSE(OkEnabled());
    At(u"cmdOK").SetEnabled(true);
    Box(u"txtOldPass").SetText(u"not seen");
    EXPECT_TRUE(OkEnabled());
}

TEST_F(PasswordFields, EnterWithNothingTypedDoesNothing) {
    world.calls.Clear();
    user.Press(key::kReturn);
    EXPECT_EQ(CallsOf({"PumpEvents", "MessageBoxW", "NetUserChangePassword"}), Lines{});
    EXPECT_EQ(form->Caption(), u"Change Password");
}

TEST_F(PasswordFields, EnterInABoxClicksOk) {
    TypePasswords(kOldPassword, kNewPassword);
    user.Press(key::kReturn);
    EXPECT_EQ(ChangedServers(), (Lines{"\\\\WORKBENCH", "\\\\ARCHIVE", "\\\\DC1"}));
}

TEST_F(PasswordFields, AMismatchIsToldInAnExclamationBox) {
    TypeInto(u"txtNewPass", u"one");
    TypeInto(u"txtConfirm", u"two");
    ClickOk();
    EXPECT_EQ(Boxes(), std::vector{kMismatch});
    EXPECT_EQ(ChangedServers(), Lines{});
    EXPECT_EQ(form->Caption(), u"Change Password");
}

TEST_F(PasswordFields, CaseCountsInTheConfirmation) {
    TypeInto(u"txtNewPass", u"Secret");
    TypeInto(u"txtConfirm", u"secret");
    ClickOk();
    EXPECT_EQ(Boxes(), std::vector{kMismatch});
}

TEST_F(PasswordFields, TheConfirmationIsNotComparedAsTheLanguageDoes) {
    TypeInto(u"txtNewPass", u"co-op");
    TypeInto(u"txtConfirm", u"coop");
    ClickOk();
    EXPECT_EQ(Boxes(), std::vector{kMismatch});
}

TEST_F(PasswordFields, AMismatchEmptiesBothBoxesKeepsTheOldPasswordAndGoesToTheNewOne) {
    TypeInto(u"txtOldPass", u"old");
    TypeInto(u"txtNewPass", u"one");
    TypeInto(u"txtConfirm", u"two");
    ClickOk();
    EXPECT_EQ(Box(u"txtNewPass").Text(), u"");
    EXPECT_EQ(Box(u"txtConfirm").Text(), u"");
    EXPECT_EQ(Box(u"txtOldPass").Text(), u"old");
    EXPECT_EQ(form->ActiveControl(), &At(u"txtNewPass"));
    EXPECT_TRUE(OkEnabled());
    EXPECT_EQ(form->MousePointer(), 0);
}

TEST_F(PasswordFields, AMismatchWithoutAnOldPasswordLeavesOkDisabled) {
    TypeInto(u"txtNewPass", u"one");
    ClickOk();
    EXPECT_EQ(Boxes(), std::vector{kMismatch});
    EXPECT_FALSE(OkEnabled());
}

TEST_F(PasswordFields, AConfirmationAloneMeetsTheMismatch) {
    TypeInto(u"txtOldPass", u"old");
    TypeInto(u"txtConfirm", u"only here");
    ClickOk();
    EXPECT_EQ(Boxes(), std::vector{kMismatch});
    EXPECT_EQ(Box(u"txtConfirm").Text(), u"");
    EXPECT_TRUE(OkEnabled());
}

TEST_F(PasswordFields, EverythingIsDisabledUnderAnHourglassWhileTheBoxIsUp) {
    Lines enabled;
    int pointer = 0;
    world.boxes.Shown = [&](const practice::Box&) {
        enabled = EnabledControls();
        pointer = form->MousePointer();
    };
    TypeInto(u"txtNewPass", u"one");
    ClickOk();
    EXPECT_EQ(enabled, (Lines{"lblUser", "txtStatus", "lblOldPass", "lblNewPass", "lblConfirm", "lblWait"}));
    EXPECT_EQ(pointer, 11);
}

TEST_F(PasswordFields, AfterAMismatchEachControlIsEnabledAsItWas) {
    Configure({}, true);
    Open();
    TypeInto(u"txtNewPass", u"one");
    ClickOk();
    EXPECT_EQ(EnabledControls(),
              (Lines{"lblUser", "txtStatus", "lblOldPass", "txtOldPass", "lstOldPass", "lblNewPass",
                     "txtNewPass", "lblConfirm", "txtConfirm", "lblWait", "cmdSettings", "cmdCancel"}));
}

TEST_F(PasswordFields, EventsArePumpedOnceAheadOfTheBox) {
    TypeInto(u"txtNewPass", u"one");
    world.calls.Clear();
    ClickOk();
    const Lines calls = CallsOf({"PumpEvents", "MessageBoxW"});
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_TRUE(calls[0].starts_with("PumpEvents"));
}

TEST_F(PasswordFields, AfterAMismatchTheRunCanStillBeMade) {
    TypePasswords(kOldPassword, kNewPassword);
    Box(u"txtConfirm").SetText(u"other");
    ClickOk();
    TypeInto(u"txtNewPass", kNewPassword);
    TypeInto(u"txtConfirm", kNewPassword);
    ClickOk();
    EXPECT_EQ(Boxes(), std::vector{kMismatch});
    EXPECT_EQ(ChangedServers(), (Lines{"\\\\WORKBENCH", "\\\\ARCHIVE", "\\\\DC1"}));
}

TEST_F(PasswordFields, AWindowClosedWhileTheBoxIsUpIsLeftAlone) {
    world.boxes.Shown = [this](const practice::Box&) { user.CloseWindow(*form); };
    TypeInto(u"txtNewPass", u"one");
    ClickOk();
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(Box(u"txtNewPass").Text(), u"one");
}

TEST_F(PasswordFields, AnEmptyNewPasswordWithAnEmptyConfirmationPassesTheChecks) {
    LiftPolicies();
    TypeInto(u"txtOldPass", kOldPassword);
    ClickOk();
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    const auto calls = world.calls.Of("NetUserChangePassword");
    ASSERT_EQ(calls.size(), 3U);
    for (const practice::Call& call : calls) {
        EXPECT_EQ(call.arguments.at(1), world.calls.MarkOf(kOldPassword));
        EXPECT_EQ(call.arguments.at(2), world.calls.MarkOf(u""));
    }
}

TEST_F(PasswordFields, APasswordOfAnyLengthAndAnyCharacterIsPassedOnWhole) {
    const String password = u"\u00E9\u4E16\U0001F511 \"%1\"" + String(300, u'x');
    TypeInto(u"txtOldPass", kOldPassword);
    Box(u"txtNewPass").SetText(password);
    Box(u"txtConfirm").SetText(password);
    ClickOk();
    ASSERT_FALSE(world.calls.MarkOf(password).empty());
    EXPECT_EQ(world.calls.Of("NetUserChangePassword").at(0).arguments.at(2), world.calls.MarkOf(password));
}

} // namespace kestrelmoor::tests
