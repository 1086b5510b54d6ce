#include "platform/windows/event_loop.h"

#include "platform/windows/form_window.h"

namespace kestrelmoor::platform {

namespace {

void HandleMessage(MSG& message) {
    FormWindow* const form = FormWindow::Holding(message.hwnd);
    if (!form || !form->Intercept(message)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    if (FormWindow* const in_front = FormWindow::Holding(::GetActiveWindow()))
        in_front->Settle();
}

} // namespace

void HandlePendingMessages() {
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        // The end is for the loop that waits.
        if (message.message == WM_QUIT)
            return ::PostQuitMessage(static_cast<int>(message.wParam));
        HandleMessage(message);
    }
}

bool HandleNextMessage() {
    MSG message{};
    if (::GetMessageW(&message, nullptr, 0, 0) <= 0) {
        // Each loop that waits on another one ends by it.
        ::PostQuitMessage(static_cast<int>(message.wParam));
        return false;
    }
    HandleMessage(message);
    return true;
}

} // namespace kestrelmoor::platform
