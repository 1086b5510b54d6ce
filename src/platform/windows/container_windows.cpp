#include "platform/windows/container_windows.h"

#include "platform/windows/colours.h"
#include "runtime/forms/form.h"

namespace kestrelmoor::platform {

namespace {

bool IsOfChildren(UINT message) {
    return message == WM_COMMAND || message == WM_NOTIFY || message == WM_DRAWITEM ||
           message == WM_MEASUREITEM || message == WM_COMPAREITEM || message == WM_DELETEITEM ||
           message == WM_VKEYTOITEM || message == WM_CHARTOITEM ||
           (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC);
}

} // namespace

LRESULT ContainerWindow::Process(UINT message, WPARAM wide, LPARAM parameter) {
    if (IsOfChildren(message) && parameter != 0)
        return ::SendMessageW(::GetParent(Handle()), message, wide, parameter);
    if (message != WM_ERASEBKGND)
        return ControlWindow::Process(message, wide, parameter);
    RECT client{};
    ::GetClientRect(Handle(), &client);
    ::FillRect(reinterpret_cast<HDC>(wide), &client, BrushOf(Model().BackColor()));
    return TRUE;
}

FrameWindow::FrameWindow(FormWindow& form, Control& frame)
    : ContainerWindow(form, frame, {L"BUTTON", BS_GROUPBOX | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT}) {}

UserControlWindow::UserControlWindow(FormWindow& form, UserControl& control)
    : ContainerWindow(form, control, {L"STATIC", SS_NOTIFY | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT}) {}

void UserControlWindow::ShowPlace() {
    ContainerWindow::ShowPlace();
    for (const auto& constituent : static_cast<const UserControl&>(Model()).Constituents())
        if (constituent->Peer())
            constituent->Peer()->Show(Property::Place);
}

LRESULT UserControlWindow::Process(UINT message, WPARAM wide, LPARAM parameter) {
    const HWND window = Handle();
    const LRESULT result = ContainerWindow::Process(message, wide, parameter);
    if (message == WM_LBUTTONDOWN && Of(window) == this && Model().CanTakeFocus())
        Model().Parent().FocusMoved(&Model());
    return result;
}

} // namespace kestrelmoor::platform
