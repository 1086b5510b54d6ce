#include "platform/input_hooks.h"

#include "platform/practice/world/world.h"

namespace kestrelmoor::platform {

using practice::TheWorld;

bool GetKeyboardCues() {
    return !TheWorld().calls.Enter("SystemParametersInfoW") && TheWorld().machine.keyboard_cues;
}

void SendUpdateUiState(WindowHandle hWnd, std::uint32_t wParam) {
    TheWorld().calls.Enter("SendUpdateUiState", {hWnd, wParam});
}

} // namespace kestrelmoor::platform
