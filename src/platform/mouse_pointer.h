#pragma once

#include "platform/input_hooks.h"
#include "platform/window_messages.h"

#include <cstdint>

namespace kestrelmoor::platform {

/// The mouse on the screen, and its pointers.

/// False where it can't be told, as on another desktop than the user's.
bool GetCursorPos(ScreenPoint& point);

/// From a window's client area to the screen, in pixels. False: no such window.
bool ClientToScreen(WindowHandle hWnd, ScreenPoint& point);

/// Within the rectangle, whose right and lower edges are outside.
bool PtInRect(const PixelRectangle& rectangle, const ScreenPoint& point);

inline constexpr int kHandPointer = 32649; ///< IDC_HAND, from Windows 2000 on

/// One of the system's own pointers by its number, shared and never given back; 0: it has none of that
/// number.
std::uintptr_t LoadCursorW(int nNumber);

} // namespace kestrelmoor::platform
