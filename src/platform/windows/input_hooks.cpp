#include "platform/input_hooks.h"

#include "platform/windows/door.h"

#include <windows.h>

namespace kestrelmoor::platform {

namespace {

static_assert(kKeyboardHook == WH_KEYBOARD && kMouseHook == WH_MOUSE && kHookAction == HC_ACTION);
static_assert(kCbtHook == WH_CBT && kHookActivate == HCBT_ACTIVATE);
static_assert(sizeof(MOUSEHOOKSTRUCT) == 20);

/// The procedure behind the door of each type.
template <int type>
HookProcedure gProcedure = nullptr;

template <int type>
LRESULT CALLBACK HookDoor(int code, WPARAM wide, LPARAM parameter) noexcept {
    return BehindDoor([&] { return static_cast<LRESULT>(gProcedure<type>(code, wide, parameter)); });
}

template <int type>
HookHandle SetHook(HookProcedure procedure) {
    gProcedure<type> = procedure;
    return reinterpret_cast<HookHandle>(
        ::SetWindowsHookExW(type, &HookDoor<type>, nullptr, ::GetCurrentThreadId()));
}

HHOOK HookOf(HookHandle hook) {
    return reinterpret_cast<HHOOK>(hook);
}

} // namespace

HookHandle SetWindowsHookExW(int nType, HookProcedure procedure) {
    switch (nType) {
    case kKeyboardHook:
        return SetHook<kKeyboardHook>(procedure);
    case kCbtHook:
        return SetHook<kCbtHook>(procedure);
    case kMouseHook:
        return SetHook<kMouseHook>(procedure);
    default:
        return 0;
    }
}

void UnhookWindowsHookEx(HookHandle hHook) {
    ::UnhookWindowsHookEx(HookOf(hHook));
}

std::intptr_t CallNextHookEx(HookHandle hHook, int nCode, std::uintptr_t wParam, std::intptr_t lParam) {
    return ::CallNextHookEx(HookOf(hHook), nCode, wParam, lParam);
}

std::array<std::uint8_t, 256> GetKeyboardState() {
    std::array<std::uint8_t, 256> state{};
    ::GetKeyboardState(state.data());
    return state;
}

ScreenPoint MouseHookPoint(std::intptr_t lParam) {
    const POINT& point = reinterpret_cast<const MOUSEHOOKSTRUCT*>(lParam)->pt;
    return {point.x, point.y};
}

bool GetKeyboardCues() {
    BOOL shown = FALSE;
    return ::SystemParametersInfoW(SPI_GETKEYBOARDCUES, 0, &shown, 0) && shown;
}

void SendUpdateUiState(WindowHandle hWnd, std::uint32_t wParam) {
    ::SendMessageW(reinterpret_cast<HWND>(hWnd), WM_UPDATEUISTATE, wParam, 0);
}

} // namespace kestrelmoor::platform
