#include "platform/windows/shift_state.h"

#include "runtime/forms/form.h"

#include <windows.h>

namespace kestrelmoor::platform {

namespace {

bool IsDown(int key) {
    return ::GetKeyState(key) < 0;
}

} // namespace

int ShiftState() {
    return (IsDown(VK_SHIFT) ? key::kShiftMask : 0) | (IsDown(VK_CONTROL) ? key::kCtrlMask : 0) |
           (IsDown(VK_MENU) ? key::kAltMask : 0);
}

} // namespace kestrelmoor::platform
