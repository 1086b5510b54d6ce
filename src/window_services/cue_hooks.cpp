#include "window_services/keyboard_cues.h"

#include "platform/input_hooks.h"
#include "runtime/errors.h"
#include "runtime/forms/application.h"
#include "shell/program_state.h"
#include "window_services/ICue.h"

#include <algorithm>

namespace kestrelmoor {

namespace {

constexpr std::uint8_t kHeld = 0xF0;           ///< the lowest bit of a key's state is its toggle
constexpr std::int64_t kHidingDistance = 1000; ///< square of the pixels that the mouse has to move

/// The point where the cues were last hidden.
platform::ScreenPoint LastCuePoint;

/// Calls the operation of the active form; no such form, or one without cues, is no matter.
void OnActiveForm(void (ICue::*operation)()) {
    try {
        if (auto* cue = dynamic_cast<ICue*>(Application::Current().ActiveForm()))
            (cue->*operation)();
    } catch (const RuntimeError&) {
        // Cues are a convenience: the key or the movement goes on its way.
    }
}

bool AnyKeyHeld() {
    const auto state = platform::GetKeyboardState();
    return std::any_of(state.begin(), state.end(), [](std::uint8_t key) { return (key & kHeld) != 0; });
}

void MouseMovedTo(const platform::ScreenPoint& point) {
    const std::int64_t dx = std::int64_t{point.x} - LastCuePoint.x;
    const std::int64_t dy = std::int64_t{point.y} - LastCuePoint.y;
    if (dx * dx + dy * dy <= kHidingDistance)
        return;
    OnActiveForm(&ICue::ICue_UnCue);
    LastCuePoint = point;
}

} // namespace

void InstallCueHooks() {
    if (gKeyboardHook == 0)
        gKeyboardHook = platform::SetWindowsHookExW(platform::kKeyboardHook, KeyboardCueHook);
    if (gMouseHook == 0)
        gMouseHook = platform::SetWindowsHookExW(platform::kMouseHook, MouseCueHook);
}

void RemoveCueHooks() {
    for (platform::HookHandle* const hook : {&gKeyboardHook, &gMouseHook}) {
        if (*hook != 0)
            platform::UnhookWindowsHookEx(*hook);
        *hook = 0;
    }
}

std::intptr_t KeyboardCueHook(int nCode, std::uintptr_t wParam, std::intptr_t lParam) {
    if (nCode == platform::kHookAction)
        OnActiveForm(&ICue::ICue_Cue);
    return platform::CallNextHookEx(gKeyboardHook, nCode, wParam, lParam);
}

std::intptr_t MouseCueHook(int nCode, std::uintptr_t wParam, std::intptr_t lParam) {
    if (!AnyKeyHeld() && nCode == platform::kHookAction)
        MouseMovedTo(platform::MouseHookPoint(lParam));
    return platform::CallNextHookEx(gMouseHook, nCode, wParam, lParam);
}

} // namespace kestrelmoor
