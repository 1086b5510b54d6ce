#pragma once

#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

/// A message box that bears the program's icons. Returns the button pressed.
int ReminderBox(const String& sPrompt, std::uint32_t nStyle, const String& sTitle);

/// What the hook around the box runs: gives the first window that is activated the icons, and takes itself
/// away.
std::intptr_t ReminderHookProc(int nCode, std::uintptr_t wParam, std::intptr_t lParam);

} // namespace kestrelmoor
