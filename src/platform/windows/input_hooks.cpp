#include "platform/input_hooks.h"

#include <windows.h>

namespace kestrelmoor::platform {

bool GetKeyboardCues() {
    BOOL shown = FALSE;
    return ::SystemParametersInfoW(SPI_GETKEYBOARDCUES, 0, &shown, 0) && shown;
}

void SendUpdateUiState(WindowHandle hWnd, std::uint32_t wParam) {
    ::SendMessageW(reinterpret_cast<HWND>(hWnd), WM_UPDATEUISTATE, wParam, 0);
}

} // namespace kestrelmoor::platform
