#include "platform/practice/hooks.h"
#include "tests/native/forms/password_rows.h"
#include "window_services/keyboard_cues.h"

#include <cstdlib>

namespace kestrelmoor::tests {

namespace {

constexpr std::size_t kCapsLock = 20;
constexpr std::size_t kShift = 16;
constexpr std::size_t kLeftButton = 1;
constexpr std::size_t kLastKey = 255;

// How the process of a test tells what became of the cues.
constexpr int kStillShown = 10;
constexpr int kHidden = 11;
constexpr int kNotShown = 12;

/// A window whose cues are shown or hidden by the hooks alone; the pointer starts at 1000, 1000, where the
/// cues were hidden last.
class PasswordCues : public PasswordRows {
  protected:
    void OpenWithPointer() {
        Open();
        user.MoveMouse(0, 0);
        user.MoveMouse(1000, 1000);
        world.calls.Clear();
    }

    bool CuesShown() { return CaptionOf(u"lblNewPass") == "&New password:"; }
};

} // namespace

TEST_F(PasswordCues, TheFirstWindowSetsBothHooksTheKeyboardsFirst) {
    Open();
    EXPECT_EQ(CallsOf({"SetWindowsHookExW"}),
              (Lines{"SetWindowsHookExW(\"2\")", "SetWindowsHookExW(\"7\")"}));
    EXPECT_NE(gKeyboardHook, 0U);
    EXPECT_NE(gMouseHook, 0U);
    EXPECT_EQ(world.calls.Count("InitCommonControls"), 1U);
}

TEST_F(PasswordCues, ASecondWindowSetsNoMore) {
    Open();
    const auto second = Application::Current().Make<frmPass>();
    InstallCueHooks();
    EXPECT_EQ(world.calls.Count("SetWindowsHookExW"), 2U);
    EXPECT_EQ(world.calls.Count("InitCommonControls"), 1U);
}

TEST_F(PasswordCues, TheHooksGoWithTheLastWindowTheKeyboardsFirst) {
    Open();
    auto second = Application::Current().Make<frmPass>();
    const std::string keyboard = std::to_string(gKeyboardHook);
    const std::string mouse = std::to_string(gMouseHook);
    form->Unload();
    form.reset();
    EXPECT_EQ(world.calls.Count("UnhookWindowsHookEx"), 0U);
    second.reset();
    EXPECT_EQ(CallsOf({"UnhookWindowsHookEx"}),
              (Lines{"UnhookWindowsHookEx(\"" + keyboard + "\")", "UnhookWindowsHookEx(\"" + mouse + "\")"}));
    EXPECT_EQ(gKeyboardHook, 0U);
    EXPECT_EQ(gMouseHook, 0U);
}

TEST_F(PasswordCues, TheWayBackKeepsTheHooks) {
    Configure({u"PRACTICE"}, false);
    Run(u"wrong");
    form.reset();
    world.calls.Clear();
    dynamic_cast<CommandButton&>(OnlyForm()->Find(u"cmdOK")).Pressed();
    ASSERT_NE(OnlyForm(), nullptr);
    EXPECT_EQ(world.calls.Count("UnhookWindowsHookEx"), 0U);
    EXPECT_EQ(world.calls.Count("SetWindowsHookExW"), 0U);
    EXPECT_NE(gKeyboardHook, 0U);
}

TEST_F(PasswordCues, WhereTheSystemAlwaysShowsThemThereAreNoHooks) {
    world.machine.keyboard_cues = true;
    Open();
    EXPECT_EQ(world.calls.Count("SetWindowsHookExW"), 0U);
    user.MoveMouse(0, 0);
    user.MoveMouse(1000, 1000);
    EXPECT_TRUE(CuesShown());
    form->Unload();
    form.reset();
    EXPECT_EQ(world.calls.Count("UnhookWindowsHookEx"), 0U);
}

TEST_F(PasswordCues, AHookThatCantBeSetLeavesTheCuesAsTheyAre) {
    world.Fail("SetWindowsHookExW", 5, 0);
    Open();
    user.Press(u'A');
    EXPECT_FALSE(CuesShown());
    form->Unload();
    form.reset();
    EXPECT_EQ(world.calls.Count("UnhookWindowsHookEx"), 0U);
}

TEST_F(PasswordCues, AnyKeyShowsThem) {
    for (const int code : {int{u'A'}, key::kF1, key::kTab, 16, 144}) {
        OpenWithPointer();
        ASSERT_FALSE(CuesShown());
        user.Press(code);
        EXPECT_TRUE(CuesShown()) << code;
        form->Unload();
    }
}

TEST_F(PasswordCues, TheReleaseOfAKeyShowsThemToo) {
    OpenWithPointer();
    KeyboardCueHook(0, u'A', -0x3FFFFFFF);
    EXPECT_TRUE(CuesShown());
}

TEST_F(PasswordCues, AKeyThatIsOnlyPeekedAtDoesNot) {
    OpenWithPointer();
    KeyboardCueHook(3, u'A', 1);
    EXPECT_FALSE(CuesShown());
}

TEST_F(PasswordCues, AMoveThatIsOnlyPeekedAtHidesNothing) {
    OpenWithPointer();
    user.Press(u'A');
    MouseCueHook(3, 512, 0);
    EXPECT_TRUE(CuesShown());
    EXPECT_EQ(world.calls.Of("CallNextHookEx").back().arguments.at(1), u"3");
}

TEST_F(PasswordCues, EachHookPassesItsInputOnUnderItsOwnHandle) {
    OpenWithPointer();
    KeyboardCueHook(3, 65, 1);
    user.MoveMouse(1001, 1000);
    EXPECT_EQ(CallsOf({"CallNextHookEx"}),
              (Lines{"CallNextHookEx(\"" + std::to_string(gKeyboardHook) + "\", \"3\", \"65\")",
                     "CallNextHookEx(\"" + std::to_string(gMouseHook) + "\", \"0\", \"512\")"}));
}

TEST_F(PasswordCues, AMoveOfMoreThanTheRootOf1000PixelsHidesThem) {
    OpenWithPointer();
    user.Press(u'A');
    user.MoveMouse(1030, 1010); // 900 + 100 is 1000, and not more
    EXPECT_TRUE(CuesShown());
    user.MoveMouse(1030, 1011);
    EXPECT_FALSE(CuesShown());
}

TEST_F(PasswordCues, AMoveInAnyDirectionCounts) {
    const std::pair<int, int> places[] = {{968, 1000}, {1032, 1000}, {1000, 968}, {1000, 1032}, {977, 1023}};
    for (const auto& [x, y] : places) {
        OpenWithPointer();
        user.Press(u'A');
        user.MoveMouse(x, y);
        EXPECT_FALSE(CuesShown()) << x << ", " << y;
        form->Unload();
    }
}

TEST_F(PasswordCues, ASlowDriftAddsUp) {
    OpenWithPointer();
    user.Press(u'A');
    for (int x = 1001; x <= 1031; ++x)
        user.MoveMouse(x, 1000);
    EXPECT_TRUE(CuesShown());
    user.MoveMouse(1032, 1000);
    EXPECT_FALSE(CuesShown());
}

TEST_F(PasswordCues, TheDistanceIsTakenFromWhereTheyWereHiddenLast) {
    OpenWithPointer();
    user.MoveMouse(1040, 1000);
    user.Press(u'A');
    user.MoveMouse(1010, 1000);
    EXPECT_TRUE(CuesShown());
    user.MoveMouse(1072, 1000);
    EXPECT_FALSE(CuesShown());
}

TEST_F(PasswordCues, WhileAKeyOrAMouseButtonIsHeldNothingIsHidden) {
    OpenWithPointer();
    for (const std::size_t held : {std::size_t{0}, kLeftButton, kShift, kLastKey}) {
        user.Press(u'A');
        world.key_states.at(held) = 0x80;
        user.MoveMouse(500, 500);
        EXPECT_TRUE(CuesShown()) << held;
        world.key_states.at(held) = 0x10;
        user.MoveMouse(400, 400);
        EXPECT_TRUE(CuesShown()) << held;
        world.key_states.at(held) = 0;
    }
    user.MoveMouse(500, 500);
    EXPECT_FALSE(CuesShown());
}

TEST_F(PasswordCues, AToggledCapsLockDoesNotKeepThem) {
    OpenWithPointer();
    user.Press(u'A');
    world.key_states.at(kCapsLock) = 0x0F;
    user.MoveMouse(500, 500);
    EXPECT_FALSE(CuesShown());
}

TEST_F(PasswordCues, TheHidingPointMovesAlsoWhereNoFormIsActive) {
    OpenWithPointer();
    user.Press(u'A');
    Application::Current().SetActiveForm(nullptr);
    practice::RunMouseHook(practice::mouse_message::kMove, {500, 500});
    Application::Current().SetActiveForm(form.get());
    user.MoveMouse(510, 500);
    EXPECT_TRUE(CuesShown()) << "near the point of the move that nobody saw";
    KeyboardCueHook(0, u'A', 1);
}

// A process of its own, in which the mouse has not moved yet.
TEST_F(PasswordCues, TheFirstMouseEventIsComparedWithTheCornerOfTheScreen) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto first_event_hides = [this](int x, int y) {
        Open();
        user.Press(u'A');
        const bool shown = CuesShown();
        user.MoveMouse(x, y);
        std::_Exit(!shown ? kNotShown : CuesShown() ? kStillShown : kHidden);
    };
    EXPECT_EXIT(first_event_hides(31, 6), testing::ExitedWithCode(kStillShown), "") << "961 + 36 pixels";
    EXPECT_EXIT(first_event_hides(31, 7), testing::ExitedWithCode(kHidden), "") << "961 + 49 pixels";
    EXPECT_EXIT(first_event_hides(500, 400), testing::ExitedWithCode(kHidden), "");
}

TEST_F(PasswordCues, AKeyWithNoFormInFrontIsNoMatter) {
    OpenWithPointer();
    Application::Current().SetActiveForm(nullptr);
    KeyboardCueHook(0, u'A', 1);
    EXPECT_FALSE(CuesShown());
}

TEST_F(PasswordCues, AKeyDuringARunWithHiddenCuesBlanksTheWaitLabel) {
    OpenWithPointer();
    TypePasswords(kOldPassword, kNewPassword);
    user.MoveMouse(0, 0);
    std::string before;
    std::string after = "not reached";
    AtPasswordCall(1, [&] {
        form->ICue_UnCue();
        At(u"lblWait").SetCaption(u"waiting");
        before = CaptionOf(u"lblWait");
        user.Press(u'A');
        after = CaptionOf(u"lblWait");
    });
    ClickOk();
    EXPECT_EQ(before, "waiting");
    EXPECT_EQ(after, "");
}

} // namespace kestrelmoor::tests
