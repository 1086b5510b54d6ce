#include "platform/practice/hooks.h"
#include "platform/practice/world/world.h"

namespace kestrelmoor {

namespace {

using practice::HandleKind;
using practice::TheWorld;

constexpr std::uint8_t kHeldBit = 0x80;
constexpr std::intptr_t kOnce = 1;
constexpr std::intptr_t kGoingUp = -0x40000000; // bits 30 and 31 of a 32-bit figure

struct InstalledHook {
    int type;
    platform::HookProcedure procedure;
};

/// What a mouse hook is given.
struct MouseRecord {
    platform::ScreenPoint point;
};

void Run(int type, int code, std::uintptr_t wide, std::intptr_t parameter) {
    const auto fits = [type](const InstalledHook& hook) { return hook.type == type; };
    const std::uintptr_t handle = TheWorld().handles.Seek<InstalledHook>(HandleKind::Hook, fits);
    if (const auto* const hook = TheWorld().handles.Find<InstalledHook>(HandleKind::Hook, handle))
        hook->procedure(code, wide, parameter);
}

} // namespace

namespace practice {

void RunKeyboardHook(int key, bool up) {
    Run(platform::kKeyboardHook, platform::kHookAction, static_cast<std::uintptr_t>(key),
        up ? kGoingUp + kOnce : kOnce);
}

void RunMouseHook(std::uintptr_t message, const platform::ScreenPoint& point) {
    const MouseRecord record{point};
    Run(platform::kMouseHook, platform::kHookAction, message, reinterpret_cast<std::intptr_t>(&record));
}

void RunActivationHook(WindowHandle window) {
    Run(platform::kCbtHook, platform::kHookActivate, window, 0);
}

Held::Held(int key) : mKey(key) {
    TheWorld().key_states.at(static_cast<std::size_t>(mKey)) |= kHeldBit;
}

Held::~Held() {
    std::uint8_t& state = TheWorld().key_states.at(static_cast<std::size_t>(mKey));
    state = static_cast<std::uint8_t>(state & ~kHeldBit);
}

} // namespace practice

namespace platform {

HookHandle SetWindowsHookExW(int nType, HookProcedure procedure) {
    if (TheWorld().calls.Enter("SetWindowsHookExW", {nType}))
        return 0;
    return TheWorld().handles.Open(HandleKind::Hook, InstalledHook{nType, procedure});
}

void UnhookWindowsHookEx(HookHandle hHook) {
    TheWorld().calls.Enter("UnhookWindowsHookEx", {hHook});
    TheWorld().handles.Close(HandleKind::Hook, hHook);
}

std::intptr_t CallNextHookEx(HookHandle hHook, int nCode, std::uintptr_t wParam, std::intptr_t /*lParam*/) {
    TheWorld().calls.Enter("CallNextHookEx", {hHook, nCode, wParam});
    return 0;
}

std::array<std::uint8_t, 256> GetKeyboardState() {
    if (TheWorld().calls.Enter("GetKeyboardState"))
        return {};
    return TheWorld().key_states;
}

ScreenPoint MouseHookPoint(std::intptr_t lParam) {
    return reinterpret_cast<const MouseRecord*>(lParam)->point;
}

bool GetKeyboardCues() {
    return !TheWorld().calls.Enter("SystemParametersInfoW") && TheWorld().machine.keyboard_cues;
}

void SendUpdateUiState(WindowHandle hWnd, std::uint32_t wParam) {
    TheWorld().calls.Enter("SendUpdateUiState", {hWnd, wParam});
}

} // namespace platform

} // namespace kestrelmoor
