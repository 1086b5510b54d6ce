#include "platform/windows/control_window.h"
#include "platform/windows/form_window.h"
#include "platform/windows/shift_state.h"
#include "runtime/forms/form.h"

namespace kestrelmoor::platform {

bool FormWindow::Intercept(MSG& message) {
    switch (message.message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return KeyDown(message.hwnd, message.wParam);
    case WM_CHAR:
        return Character(message.wParam);
    case WM_SYSCHAR:
        return message.wParam != key::kSpace && mForm.Accelerator(static_cast<char16_t>(message.wParam));
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
        return !MayPress(message.hwnd);
    default:
        return false;
    }
}

bool FormWindow::KeyDown(HWND window, WPARAM key_code) {
    const ControlWindow* const control = ControlWindow::Of(window);
    if (key_code == VK_PROCESSKEY || (control && control->KeepsKey(key_code)))
        return false;
    return mForm.KeyDown(static_cast<int>(key_code), ShiftState());
}

bool FormWindow::Character(WPARAM& message_character) {
    auto character = static_cast<char16_t>(message_character);
    const bool used = mForm.KeyPress(character);
    message_character = character;
    return used;
}

bool FormWindow::MayPress(HWND window) {
    const ControlWindow* const control = ControlWindow::Of(window);
    return !control || !control->Model().CanTakeFocus() || mForm.MayMoveFocus(&control->Model());
}

} // namespace kestrelmoor::platform
