#pragma once

#include "runtime/forms/peer.h"

#include <cstdint>

namespace kestrelmoor::platform {

/// The windows that stand in another one, whoever made them.

/// 0 stops the enumeration, anything else goes on.
using ChildWindowCallback = std::int32_t (*)(WindowHandle hWndChild, std::intptr_t lParam);

/// Calls `callback` with each child, and with the children of those, in the order of the system.
void EnumChildWindows(WindowHandle hWndParent, ChildWindowCallback callback, std::intptr_t lParam);

/// The name of a window's class, cut to what the buffer holds, of which the last character is for the NUL.
/// The result is its length without the NUL; 0: failed.
std::int32_t GetClassNameW(WindowHandle hWnd, String& sBuffer);

} // namespace kestrelmoor::platform
