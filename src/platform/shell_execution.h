#pragma once

#include "runtime/forms/peer.h"

#include <cstdint>

namespace kestrelmoor::platform {

inline constexpr int kShowNormal = 1; ///< SW_SHOWNORMAL

/// Has the shell open a file or an address with the program that it belongs to, with no parameters and in no
/// folder of its own. Above 32: it was opened; else a code of the shell. The system's own error mode is set
/// during the call, so that what is started within it does not inherit this process's. A system without the
/// call raises 53 or 453.
std::uintptr_t ShellExecuteW(WindowHandle hWnd, const String& sOperation, const String& sFile, int nShow);

} // namespace kestrelmoor::platform
