#include "watch/reminder_box.h"

#include "platform/form_peer.h"
#include "platform/input_hooks.h"
#include "platform/practice/windows.h"
#include "shell/program_state.h"
#include "tests/native/support/probe_form.h"
#include "tests/native/support/program_test.h"

namespace kestrelmoor::tests {

namespace {

constexpr std::uint32_t kStyle = 69700;

class Reminder : public ProgramTest {
  protected:
    static int Ask() { return ReminderBox(u"prompt", kStyle, u"title"); }

    std::size_t Hooks() const { return world.handles.Outstanding(practice::HandleKind::Hook); }

    /// The calls around the box that the hook is made of.
    Lines Steps() const {
        Lines steps;
        for (const practice::Call& call : world.calls.All())
            for (const char* const name :
                 {"SetWindowsHookExW", "MessageBoxW", "UnhookWindowsHookEx", "SetWindowIcon"})
                if (call.name == name)
                    steps.push_back(call.name);
        return steps;
    }

    /// The icons that were given to a window, each as its size and its measure in pixels.
    Lines IconsOf(WindowHandle window) const {
        Lines sizes;
        for (const practice::Call& call : world.calls.Of("SetWindowIcon"))
            if (call.arguments.at(0) == FromUtf8(std::to_string(window)) && call.arguments.at(2) != u"0")
                sizes.push_back(ToUtf8(call.arguments.at(1)));
        return sizes;
    }
};

/// The hook's procedure by itself, on a window of the program's own.
class ReminderHook : public Reminder {
  protected:
    ReminderHook() {
        Application::Current().SetDesktop(&platform::TheDesktop());
        form->Show();
        gMsgBoxHook = platform::SetWindowsHookExW(platform::kCbtHook, ReminderHookProc);
        world.calls.Clear();
    }
    ~ReminderHook() override {
        if (gMsgBoxHook != 0)
            platform::UnhookWindowsHookEx(gMsgBoxHook);
        Application::Current().UnloadAll();
        form.reset();
        Application::Current().SetDesktop(nullptr);
    }

    std::shared_ptr<ProbeForm> form = MakeProbe();
};

} // namespace

TEST_F(Reminder, IsABoxWithTextStyleAndTitle) {
    Ask();
    EXPECT_EQ(Boxes(), (std::vector<ShownBox>{{"prompt", 69700, "title"}}));
}

TEST_F(Reminder, ReturnsTheButtonPressed) {
    for (const int button : {6, 7}) {
        world.boxes.Answer(button);
        EXPECT_EQ(Ask(), button);
    }
}

TEST_F(Reminder, SetsItsHookAheadOfTheBoxAndTakesItAwayAtTheActivation) {
    Ask();
    EXPECT_EQ(Steps(), (Lines{"SetWindowsHookExW", "MessageBoxW", "UnhookWindowsHookEx", "SetWindowIcon",
                              "SetWindowIcon"}));
    EXPECT_EQ(CallsOf({"SetWindowsHookExW"}), Lines{R"(SetWindowsHookExW("5"))"});
    EXPECT_EQ(Hooks(), 0U);
    EXPECT_EQ(gMsgBoxHook, 0U);
}

TEST_F(Reminder, GivesTheBoxBothIconsOfTheProgram) {
    Ask();
    const auto calls = world.calls.Of("SetWindowIcon");
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_NE(calls.at(0).arguments.at(0), u"0");
    EXPECT_EQ(calls.at(0).arguments.at(0), calls.at(1).arguments.at(0));
    EXPECT_EQ(calls.at(0).arguments.at(1), u"0");
    EXPECT_EQ(calls.at(1).arguments.at(1), u"1");
    EXPECT_EQ(CallsOf({"LoadImageW"}),
              (Lines{R"(LoadImageW("1", "16", "16"))", R"(LoadImageW("1", "32", "32"))"}));
}

TEST_F(Reminder, LeavesNoHookWhereNoWindowWasActivated) {
    world.Fail("MessageBoxW", 7);
    EXPECT_EQ(Ask(), 7);
    EXPECT_EQ(Steps(), (Lines{"SetWindowsHookExW", "MessageBoxW", "UnhookWindowsHookEx"}));
    EXPECT_EQ(Hooks(), 0U);
    EXPECT_NE(gMsgBoxHook, 0U);
}

TEST_F(Reminder, WithoutAHookCostsOnlyTheIcons) {
    world.Fail("SetWindowsHookExW", 5);
    world.boxes.Answer(7);
    EXPECT_EQ(Ask(), 7);
    EXPECT_EQ(Steps(), (Lines{"SetWindowsHookExW", "MessageBoxW"}));
    EXPECT_EQ(Boxes(), (std::vector<ShownBox>{{"prompt", 69700, "title"}}));
}

TEST_F(Reminder, AHookOfAnEarlierBoxIsNotTakenAwayTwice) {
    world.Fail("MessageBoxW", 7);
    Ask();
    Ask();
    world.Fail("MessageBoxW", 7);
    Ask();
    world.Fail("SetWindowsHookExW", 5);
    Ask();
    EXPECT_EQ(world.calls.Count("UnhookWindowsHookEx"), 3U);
    EXPECT_EQ(world.handles.WrongReleases(), 0U);
}

TEST_F(Reminder, LeavesOtherHooksAlone) {
    const platform::HookHandle other = platform::SetWindowsHookExW(platform::kKeyboardHook, ReminderHookProc);
    Ask();
    EXPECT_EQ(Hooks(), 1U);
    platform::UnhookWindowsHookEx(other);
}

TEST_F(ReminderHook, ServesTheFirstActivationAlone) {
    EXPECT_EQ(ReminderHookProc(5, form->Window(), 0), 0);
    EXPECT_EQ(Hooks(), 0U);
    EXPECT_EQ(gMsgBoxHook, 0U);
    EXPECT_EQ(Steps(), (Lines{"UnhookWindowsHookEx", "SetWindowIcon", "SetWindowIcon"}));
    EXPECT_EQ(IconsOf(form->Window()), (Lines{"0", "1"}));
}

TEST_F(ReminderHook, LetsEveryOtherEventPassWithoutTheNextHook) {
    for (const int code : {-1, 0, 1, 2, 3, 4, 6, 7, 8, 9})
        EXPECT_EQ(ReminderHookProc(code, form->Window(), 0), 0) << code;
    EXPECT_EQ(Names(), Lines{});
    EXPECT_EQ(Hooks(), 1U);
    EXPECT_NE(gMsgBoxHook, 0U);
}

TEST_F(ReminderHook, CallsNoOtherHookAtTheActivationEither) {
    ReminderHookProc(5, form->Window(), 0);
    EXPECT_EQ(world.calls.Count("CallNextHookEx"), 0U);
}

} // namespace kestrelmoor::tests
