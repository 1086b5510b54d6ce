#pragma once

#include "runtime/forms/peer.h"

#include <array>
#include <cstdint>

namespace kestrelmoor::platform {

/// Hooks of this thread, which see input before any window and before the forms do.

using HookHandle = std::uintptr_t; ///< 0: none

inline constexpr int kKeyboardHook = 2; ///< WH_KEYBOARD
inline constexpr int kCbtHook = 5;      ///< WH_CBT: windows about to be made, activated, moved ...
inline constexpr int kMouseHook = 7;    ///< WH_MOUSE
inline constexpr int kHookAction = 0;   ///< HC_ACTION
inline constexpr int kHookActivate = 5; ///< HCBT_ACTIVATE: `wParam` is the window

/// What a hook runs; one that stays ends with `CallNextHookEx`.
using HookProcedure = std::intptr_t (*)(int nCode, std::uintptr_t wParam, std::intptr_t lParam);

/// One procedure per type and thread at a time. 0 when it can't be set.
HookHandle SetWindowsHookExW(int nType, HookProcedure procedure);
void UnhookWindowsHookEx(HookHandle hHook);
std::intptr_t CallNextHookEx(HookHandle hHook, int nCode, std::uintptr_t wParam, std::intptr_t lParam);

/// State of the 256 virtual keys, mouse buttons among them: the high bits of a byte for held, the lowest for
/// toggled.
std::array<std::uint8_t, 256> GetKeyboardState();

struct ScreenPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

/// Where the mouse is, out of the record (MOUSEHOOKSTRUCT, 20 bytes) that a mouse hook is given.
ScreenPoint MouseHookPoint(std::intptr_t lParam);

/// SystemParametersInfoW with SPI_GETKEYBOARDCUES: whether cues are always shown. False also when the call
/// failed.
bool GetKeyboardCues();

/// WM_UPDATEUISTATE to a form's window.
void SendUpdateUiState(WindowHandle hWnd, std::uint32_t wParam);

} // namespace kestrelmoor::platform
