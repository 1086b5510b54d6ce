#include "platform/input_hooks.h"

#include "platform/form_peer.h"
#include "platform/message_box.h"
#include "platform/practice/user.h"
#include "platform/practice/world/world.h"
#include "tests/form_model_shared/recorded_form.h"

#include <gtest/gtest.h>

namespace kestrelmoor {
namespace {

using tests::Events;
using tests::RecordedForm;

platform::HookHandle hook = 0;
RecordedForm* watched = nullptr;

std::intptr_t SeeingKeys(int nCode, std::uintptr_t wParam, std::intptr_t lParam) {
    watched->Note(std::to_string(wParam) + (lParam < 0 ? " up" : " down"));
    return platform::CallNextHookEx(hook, nCode, wParam, lParam);
}

std::intptr_t SeeingMouse(int nCode, std::uintptr_t wParam, std::intptr_t lParam) {
    const platform::ScreenPoint point = platform::MouseHookPoint(lParam);
    const bool held = (platform::GetKeyboardState()[1] & 0xF0) != 0;
    watched->Note(std::to_string(wParam) + " at " + std::to_string(point.x) + "," + std::to_string(point.y) +
                  (held ? " held" : ""));
    return platform::CallNextHookEx(hook, nCode, wParam, lParam);
}

std::intptr_t SeeingActivations(int nCode, std::uintptr_t wParam, std::intptr_t /*lParam*/) {
    watched->Note(std::to_string(nCode) + " of " + std::to_string(wParam));
    return 0;
}

std::intptr_t NeverRun(int /*nCode*/, std::uintptr_t /*wParam*/, std::intptr_t /*lParam*/) {
    ADD_FAILURE() << "a hook below another one was run";
    return 0;
}

class PracticeHooks : public testing::Test {
  protected:
    PracticeHooks() {
        Application::Current().SetDesktop(&platform::TheDesktop());
        form = Application::Current().Make<RecordedForm>();
        watched = form.get();
        form->Show();
        form->Take();
    }
    ~PracticeHooks() override {
        Application::Current().UnloadAll();
        Application::Current().SetDesktop(nullptr);
    }

    practice::ScopedWorld world;
    practice::User user;
    std::shared_ptr<RecordedForm> form;
};

TEST_F(PracticeHooks, SeeAKeyGoDownAheadOfTheFormAndUpAtTheEnd) {
    hook = platform::SetWindowsHookExW(platform::kKeyboardHook, &SeeingKeys);
    EXPECT_EQ(world.OutstandingHandles(), 1U);
    user.Press(key::kF1, key::kShiftMask);
    EXPECT_EQ(form->Take(), (Events{"16 down", "112 down", "KeyDown F1, shift 1", "112 up", "16 up"}));
    platform::UnhookWindowsHookEx(hook);
    EXPECT_EQ(world.OutstandingHandles(), 0U);
    user.Press(key::kF1);
    EXPECT_EQ(form->Take(), (Events{"KeyDown F1, shift 0"}));
}

TEST_F(PracticeHooks, SeeEveryCharacterThatIsTyped) {
    hook = platform::SetWindowsHookExW(platform::kKeyboardHook, &SeeingKeys);
    user.Type(u"a");
    EXPECT_EQ(form->Take(), (Events{"65 down", "txtFirst Change 'a'", "65 up"}));
    platform::UnhookWindowsHookEx(hook);
}

// The check box stands at 120, 840 twips and is 2400 by 255.
TEST_F(PracticeHooks, SeeTheMouseMoveAndItsButtonHeldDuringAPress) {
    hook = platform::SetWindowsHookExW(platform::kMouseHook, &SeeingMouse);
    user.MoveMouse(5, 6);
    user.ClickOn(form->chkMark);
    EXPECT_EQ(form->Take(),
              (Events{"512 at 5,6", "512 at 388,264", "513 at 388,264 held", "txtFirst LostFocus to chkMark",
                      "chkMark GotFocus", "514 at 388,264", "chkMark Click"}));
    platform::UnhookWindowsHookEx(hook);
}

TEST_F(PracticeHooks, FindKeysHeldOnlyWhileTheyAre) {
    form->On("KeyDown F1, shift 1", [this] {
        form->Note(platform::GetKeyboardState()[16] == 0x80 ? "shift held" : "shift not held");
    });
    user.Press(key::kF1, key::kShiftMask);
    EXPECT_EQ(form->Take(), (Events{"KeyDown F1, shift 1", "shift held"}));
    EXPECT_EQ(platform::GetKeyboardState()[16], 0);
}

TEST_F(PracticeHooks, SeeABoxBecomeActiveWhileItsWindowIsThere) {
    hook = platform::SetWindowsHookExW(platform::kCbtHook, &SeeingActivations);
    world.boxes.Shown = [this](const practice::Box& box) { form->Note("box " + std::to_string(box.window)); };
    platform::MessageBoxW(u"Sure?", 4, u"Title");
    world.boxes.Shown = nullptr;
    platform::UnhookWindowsHookEx(hook);
    const auto window = std::to_string(world.boxes.All()[0].window);
    EXPECT_EQ(form->Take(), (Events{"5 of " + window, "box " + window}));
    platform::MessageBoxW(u"Sure?", 4, u"Title");
    EXPECT_EQ(form->Take(), Events{});
}

TEST_F(PracticeHooks, OfOneTypeOnlyTheOneInstalledLastIsRun) {
    const auto older = platform::SetWindowsHookExW(platform::kCbtHook, &NeverRun);
    hook = platform::SetWindowsHookExW(platform::kCbtHook, &SeeingActivations);
    platform::MessageBoxW(u"Sure?", 4, u"Title");
    platform::UnhookWindowsHookEx(hook);
    platform::UnhookWindowsHookEx(older);
    EXPECT_EQ(form->Take().size(), 1U);
}

TEST_F(PracticeHooks, AreNotThereWhenSettingThemFails) {
    world.Fail("SetWindowsHookExW", 5);
    EXPECT_EQ(platform::SetWindowsHookExW(platform::kMouseHook, &SeeingMouse), 0U);
    user.MoveMouse(100, 100);
    EXPECT_EQ(form->Take(), Events{});
}

} // namespace
} // namespace kestrelmoor
