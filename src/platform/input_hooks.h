#pragma once

#include "runtime/forms/peer.h"

#include <cstdint>

namespace kestrelmoor::platform {

/// SystemParametersInfoW with SPI_GETKEYBOARDCUES: whether cues are always shown. False also when the call
/// failed.
bool GetKeyboardCues();

/// WM_UPDATEUISTATE to a form's window.
void SendUpdateUiState(WindowHandle hWnd, std::uint32_t wParam);

} // namespace kestrelmoor::platform
