#include "platform/windows/colours.h"
#include "platform/windows/control_window.h"
#include "platform/windows/form_registry.h"
#include "platform/windows/form_window.h"
#include "platform/windows/graphics.h"
#include "runtime/forms/application.h"

namespace kestrelmoor::platform {

namespace {

/// Posted to a form's own window, so that a change of focus is acted on also in a loop of the system.
constexpr UINT kSettle = WM_APP;

bool IsColourQuestion(UINT message) {
    return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
}

bool PointsInto(HWND window) {
    POINT point{};
    ::GetCursorPos(&point);
    const HWND under = ::WindowFromPoint(point);
    return under == window || ::IsChild(window, under);
}

struct Message {
    UINT number;
    WPARAM wide;
    LPARAM parameter;
};

BOOL CALLBACK TellWindow(HWND window, LPARAM given) noexcept {
    const auto& message = *reinterpret_cast<const Message*>(given);
    ::SendMessageW(window, message.number, message.wide, message.parameter);
    return TRUE;
}

/// A change of the system's look is told to windows at the top alone; what they hold hears of it here.
void PassOn(HWND window, const Message& message) {
    ::EnumChildWindows(window, &TellWindow, reinterpret_cast<LPARAM>(&message));
    ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

/// Timers go by the addresses of their controls.
kestrelmoor::Timer* TimerOf(const Form& form, WPARAM identifier) {
    for (const auto& control : form.Controls())
        if (control->Kind() == ControlKind::Timer && reinterpret_cast<WPARAM>(control.get()) == identifier)
            return static_cast<kestrelmoor::Timer*>(control.get());
    return nullptr;
}

} // namespace

LRESULT FormWindow::Process(UINT message, WPARAM wide, LPARAM parameter) {
    if (LRESULT brush = 0; IsColourQuestion(message) && Colours(wide, parameter, message, brush))
        return brush;
    switch (message) {
    case WM_ERASEBKGND:
        return FillBackground(reinterpret_cast<HDC>(wide));
    case WM_ACTIVATE:
        if (LOWORD(wide) != WA_INACTIVE && HIWORD(wide) == 0)
            Activated();
        return 0;
    case WM_SETFOCUS:
        if (FocusWindow() != Handle())
            GiveFocus(FocusWindow());
        return 0;
    case WM_CLOSE:
        mForm.CloseRequested();
        return 0;
    case WM_ENDSESSION:
        if (wide)
            mForm.CloseRequested();
        return 0;
    case WM_COMMAND:
        Command(reinterpret_cast<HWND>(parameter), HIWORD(wide));
        return 0;
    case WM_DRAWITEM:
        return DrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(parameter));
    case WM_TIMER:
        if (auto* const timer = TimerOf(mForm, wide))
            timer->Elapsed();
        return 0;
    case WM_HELP:
        return TRUE;
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
        PassOn(Handle(), {message, wide, parameter});
        break;
    case kSettle:
        Settle();
        return 0;
    case WM_SETCURSOR:
        if (LOWORD(parameter) == HTCLIENT && ShowPointer())
            return TRUE;
        break;
    default:
        break;
    }
    return ::DefWindowProcW(Handle(), message, wide, parameter);
}

bool FormWindow::FillBackground(HDC context) const {
    RECT client{};
    ::GetClientRect(Handle(), &client);
    ::FillRect(context, &client, BrushOf(mForm.BackColor()));
    DrawGraphics(context, mForm);
    return true;
}

bool FormWindow::Colours(WPARAM context, LPARAM window, UINT question, LRESULT& brush) const {
    const ControlWindow* const control = ControlWindow::Of(reinterpret_cast<HWND>(window));
    brush =
        control ? reinterpret_cast<LRESULT>(control->Colours(reinterpret_cast<HDC>(context), question)) : 0;
    return brush != 0;
}

bool FormWindow::DrawItem(const DRAWITEMSTRUCT& item) {
    const ControlWindow* const control = ControlWindow::Of(item.hwndItem);
    if (control)
        control->Draw(item);
    return true;
}

bool FormWindow::ShowPointer() const {
    if (mForm.MousePointer() != mouse_pointer::kHourglass)
        return false;
    ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
    return true;
}

// Until the mouse moves nobody asks for a pointer.
void FormWindow::PointerChanged() const {
    if (PointsInto(Handle()) && !ShowPointer())
        ::SetCursor(::LoadCursorW(nullptr, IDC_ARROW));
}

// A button that the space bar holds down clicks when it loses the keyboard. Where the form gives that to
// another control the click waits until it has.
void FormWindow::Command(HWND window, int code) {
    ControlWindow* const control = ControlWindow::Of(window);
    if (!control || !control->Reports(code))
        return;
    if (mGivingFocus && code == BN_CLICKED) {
        ::PostMessageW(Handle(), WM_COMMAND, MAKEWPARAM(0, code), reinterpret_cast<LPARAM>(window));
        return;
    }
    Settle();
    if (ControlWindow::Of(window) == control)
        control->Notified(code);
}

void FormWindow::Activated() {
    Application::Current().SetActiveForm(&mForm);
    GiveFocus(FocusWindow());
}

HWND FormWindow::FocusWindow() const {
    const Control* const active = mForm.FocusHolder();
    return active && active->Peer() ? reinterpret_cast<HWND>(active->Peer()->Window()) : Handle();
}

void FormWindow::GiveFocus(HWND window) {
    const HWND own = Handle();
    if (::GetActiveWindow() != own)
        return;
    mGivingFocus = true;
    ::SetFocus(window);
    if (FormWindowOf(own) != this)
        return; // what a list reported when it lost the keyboard has ended the form
    mGivingFocus = false;
    mFocusChanged = false;
}

void FormWindow::NoteFocusChange() {
    if (mGivingFocus || mFocusChanged)
        return;
    mFocusChanged = true;
    ::PostMessageW(Handle(), kSettle, 0, 0);
}

void FormWindow::Settle() {
    if (!mFocusChanged)
        return;
    mFocusChanged = false;
    if (::GetActiveWindow() != Handle())
        return;
    const ControlWindow* const holder = ControlWindow::Of(::GetFocus());
    if (!holder)
        GiveFocus(FocusWindow());
    else if (&holder->Model() != mForm.FocusHolder())
        mForm.FocusMoved(&holder->Model());
}

} // namespace kestrelmoor::platform
