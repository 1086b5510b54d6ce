#include "platform/input_hooks.h"

#include "platform/window_messages.h"
#include "tests/windows/form_windows/windows_of_form.h"

#include <string>
#include <vector>

namespace kestrelmoor::tests {

namespace {

using namespace platform;

HookHandle hook = 0;
std::function<void(std::uintptr_t, std::intptr_t)> at_input;

std::intptr_t Seeing(int nCode, std::uintptr_t wParam, std::intptr_t lParam) {
    if (nCode == kHookAction && at_input)
        at_input(wParam, lParam);
    return CallNextHookEx(hook, nCode, wParam, lParam);
}

class FormHooks : public ShownForm {
  protected:
    void Set(int type) { hook = SetWindowsHookExW(type, &Seeing); }
    void TearDown() override {
        at_input = {};
        UnhookWindowsHookEx(hook);
        ShownForm::TearDown();
    }
};

TEST_F(FormHooks, SeeAKeyGoDownAndUpAheadOfTheForm) {
    Set(kKeyboardHook);
    ASSERT_NE(hook, 0U);
    at_input = [this](std::uintptr_t key, std::intptr_t how) {
        form->Note(std::to_string(key) + (how < 0 ? " up" : " down"));
    };
    hand->Press(key::kF1);
    EXPECT_EQ(Seen(), (Events{"112 down", "KeyDown F1, shift 0", "112 up"}));
}

TEST_F(FormHooks, LetTheInputGoOn) {
    Set(kKeyboardHook);
    hand->Type(u"ab");
    EXPECT_EQ(form->txtFirst.Text(), u"ab");
}

TEST_F(FormHooks, TakenAwaySeeNothing) {
    Set(kKeyboardHook);
    at_input = [this](std::uintptr_t, std::intptr_t) { form->Note("seen"); };
    UnhookWindowsHookEx(hook);
    hand->Press(key::kF1);
    EXPECT_EQ(Seen(), (Events{"KeyDown F1, shift 0"}));
}

TEST_F(FormHooks, SeeTheMouseWhereItIs) {
    Set(kMouseHook);
    ASSERT_NE(hook, 0U);
    ScreenPoint last;
    at_input = [&last](std::uintptr_t, std::intptr_t record) { last = MouseHookPoint(record); };
    hand->ClickOn(form->chkMark);
    RECT place{};
    ::GetWindowRect(WindowOf(form->chkMark), &place);
    EXPECT_NEAR(last.x, (place.left + place.right) / 2, 1);
    EXPECT_NEAR(last.y, (place.top + place.bottom) / 2, 1);
    EXPECT_EQ(form->chkMark.Value(), 1);
}

std::vector<std::uintptr_t> activated;

/// Serves for one activation.
std::intptr_t NotingOneActivation(int nCode, std::uintptr_t wParam, std::intptr_t /*lParam*/) {
    if (nCode == kHookActivate) {
        UnhookWindowsHookEx(hook);
        activated.push_back(wParam);
    }
    return 0;
}

TEST_F(FormHooks, OfWindowsSeeAnActivationAndCanTakeThemselvesAwayInIt) {
    const HWND other = ::CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100,
                                         nullptr, nullptr, nullptr, nullptr);
    const auto own = reinterpret_cast<HWND>(form->Window());
    ::SetActiveWindow(own);
    activated.clear();
    hook = SetWindowsHookExW(kCbtHook, &NotingOneActivation);
    ASSERT_NE(hook, 0U);
    ::SetActiveWindow(other);
    EXPECT_EQ(::GetActiveWindow(), other);
    ::SetActiveWindow(own);
    EXPECT_EQ(activated, (std::vector<std::uintptr_t>{reinterpret_cast<std::uintptr_t>(other)}));
    ::DestroyWindow(other);
}

TEST_F(FormHooks, OfOtherTypesAreNotSet) {
    EXPECT_EQ(SetWindowsHookExW(WH_GETMESSAGE, &Seeing), 0U);
}

TEST_F(FormHooks, FindTheKeysThatAreHeld) {
    Set(kKeyboardHook);
    bool held = false;
    at_input = [&](std::uintptr_t key, std::intptr_t how) {
        if (key == 'A' && how >= 0)
            held = (GetKeyboardState()[VK_SHIFT] & 0xF0) != 0;
    };
    hand->Press('A', key::kShiftMask);
    EXPECT_TRUE(held);
    EXPECT_EQ(GetKeyboardState()[VK_SHIFT] & 0xF0, 0);
}

std::uint32_t state_told = 0;
PreviousProcedure own_procedure = 0;

std::intptr_t NotingState(WindowHandle hWnd, std::uint32_t uMsg, std::uintptr_t wParam,
                          std::intptr_t lParam) {
    if (uMsg == WM_UPDATEUISTATE)
        state_told = static_cast<std::uint32_t>(wParam);
    return CallWindowProcW(own_procedure, hWnd, uMsg, wParam, lParam);
}

class FormCues : public ShownForm {};

TEST_F(FormCues, AreHiddenAndShownByAMessageToTheForm) {
    own_procedure = SetWindowProcedure(form->Window(), &NotingState);
    SendUpdateUiState(form->Window(), 0x30001);
    EXPECT_EQ(state_told, 0x30001U);
    SendUpdateUiState(form->Window(), 0x30002);
    EXPECT_EQ(state_told, 0x30002U);
}

} // namespace

} // namespace kestrelmoor::tests
