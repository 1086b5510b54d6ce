#include "platform/windows/control_window.h"

#include "platform/windows/colours.h"
#include "platform/windows/door.h"
#include "platform/windows/fonts.h"
#include "platform/windows/pixels.h"
#include "platform/windows/shift_state.h"
#include "platform/windows/wide_text.h"
#include "platform/windows/window_life.h"
#include "runtime/forms/form.h"

#include <climits>
#include <string_view>

namespace kestrelmoor::platform {

namespace {

constexpr int kFirstIdentifier = 100;

HWND HandleOf(const Control& control) {
    return control.Peer() ? reinterpret_cast<HWND>(control.Peer()->Window()) : nullptr;
}

HWND HolderOf(const FormWindow& form, const Control& control) {
    return control.Container() ? HandleOf(*control.Container()) : form.Handle();
}

/// What stands in no tab order lies behind what does. A user control may be laid over its neighbours.
int Rank(const Control& control) {
    if (control.Kind() == ControlKind::UserControl)
        return -1;
    return control.TabIndex() < 0 ? INT_MAX : control.TabIndex();
}

DWORD StateStyle(const Control& control) {
    return (control.Visible() ? WS_VISIBLE : 0U) | (control.Enabled() ? 0U : WS_DISABLED);
}

constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;
constexpr int kMiddleButton = 4;

int ButtonsOf(WPARAM keys) {
    return ((keys & MK_LBUTTON) != 0 ? kLeftButton : 0) | ((keys & MK_RBUTTON) != 0 ? kRightButton : 0) |
           ((keys & MK_MBUTTON) != 0 ? kMiddleButton : 0);
}

int ButtonOf(UINT message) {
    if (message == WM_LBUTTONDOWN)
        return kLeftButton;
    return message == WM_RBUTTONDOWN ? kRightButton : kMiddleButton;
}

} // namespace

ControlWindow::ControlWindow(FormWindow& form, Control& control, const WindowKind& kind)
    : mForm(form), mControl(control), mIsStatic(std::wstring_view(kind.window_class) == L"STATIC") {
    const RECT place = PixelPlace(control);
    const auto identifier = static_cast<UINT_PTR>(kFirstIdentifier + control.TabIndex());
    const DWORD style = WS_CHILD | WS_CLIPSIBLINGS | kind.style | StateStyle(control);
    mWindow = ::CreateWindowExW(kind.extended_style, kind.window_class, Wide(control.Caption()), style,
                                place.left, place.top, place.right - place.left, place.bottom - place.top,
                                HolderOf(form, control), reinterpret_cast<HMENU>(identifier),
                                ::GetModuleHandleW(nullptr), nullptr);
    if (!mWindow)
        RaiseError(error_number::kOutOfMemory);
    PutInTabOrder();
    ::SetWindowLongW(mWindow, GWL_USERDATA, reinterpret_cast<LONG>(this));
    mOriginal = reinterpret_cast<WNDPROC>(
        ::SetWindowLongW(mWindow, GWL_WNDPROC, reinterpret_cast<LONG>(&ControlWindow::Procedure)));
    ControlWindow::ShowFont();
    mForm.Tips().Set(mWindow, mControl.ToolTipText());
}

ControlWindow::~ControlWindow() {
    if (mWindow)
        Detach();
}

void ControlWindow::Detach() {
    ::SetWindowLongW(mWindow, GWL_WNDPROC, reinterpret_cast<LONG>(mOriginal));
    ::SetWindowLongW(mWindow, GWL_USERDATA, 0);
    mWindow = nullptr;
}

ControlWindow* ControlWindow::Of(HWND window) {
    return FormWindow::Holding(window) && (::GetWindowLongW(window, GWL_STYLE) & WS_CHILD)
               ? reinterpret_cast<ControlWindow*>(::GetWindowLongW(window, GWL_USERDATA))
               : nullptr;
}

// A screen reader takes a box's name from the label ahead of it, and what comes first lies on top.
void ControlWindow::PutInTabOrder() const {
    const Control* ahead = nullptr;
    for (const Control* const other : mControl.Parent().AllControls()) {
        const bool is_candidate = other != &mControl && other->Container() == mControl.Container() &&
                                  HandleOf(*other) && Rank(*other) <= Rank(mControl);
        if (is_candidate && (!ahead || Rank(*other) >= Rank(*ahead)))
            ahead = other;
    }
    ::SetWindowPos(mWindow, ahead ? HandleOf(*ahead) : HWND_TOP, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

LRESULT CALLBACK ControlWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) noexcept {
    const ProcedureRunning running(window);
    return BehindDoor([&]() -> LRESULT {
        auto* const self = reinterpret_cast<ControlWindow*>(::GetWindowLongW(window, GWL_USERDATA));
        return self ? self->Process(message, wide, parameter)
                    : ::DefWindowProcW(window, message, wide, parameter);
    });
}

LRESULT ControlWindow::Process(UINT message, WPARAM wide, LPARAM parameter) {
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS)
        mForm.NoteFocusChange();
    if (message == WM_NCDESTROY) {
        const HWND going = mWindow;
        const WNDPROC original = mOriginal;
        Detach();
        return ::CallWindowProcW(original, going, message, wide, parameter);
    }
    if (message == WM_SETCURSOR && LOWORD(parameter) == HTCLIENT && ShowPointer())
        return TRUE;
    // Since Windows Vista such a window would put its text on the clipboard, in place of what is there.
    if (message == WM_LBUTTONDBLCLK && mIsStatic)
        return 0;
    const HWND window = mWindow;
    mForm.Tips().Hear(mWindow, message, wide, parameter);
    ReportMouse(message, wide, parameter);
    return Of(window) == this ? Original(message, wide, parameter) : 0;
}

// A form that is busy shows its own pointer everywhere.
bool ControlWindow::ShowPointer() const {
    if (mControl.MousePointer() != mouse_pointer::kCustom ||
        mControl.Parent().MousePointer() != mouse_pointer::kDefault)
        return false;
    const SharedPicture& icon = mControl.MouseIcon();
    ::SetCursor(
        icon ? reinterpret_cast<HCURSOR>(icon->Handle())
             : ::LoadCursorW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(mControl.DesignMouseIcon())));
    return true;
}

void ControlWindow::ReportMouse(UINT message, WPARAM keys, LPARAM place) {
    const float x = static_cast<float>(static_cast<short>(LOWORD(place))) * TwipsPerPixelX();
    const float y = static_cast<float>(static_cast<short>(HIWORD(place))) * TwipsPerPixelY();
    if (message == WM_MOUSEMOVE)
        mControl.MouseMoved(ButtonsOf(keys), ShiftState(), x, y);
    else if (message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN)
        mControl.MousePressed(ButtonOf(message), ShiftState(), x, y);
}

LRESULT ControlWindow::Original(UINT message, WPARAM wide, LPARAM parameter) {
    return ::CallWindowProcW(mOriginal, mWindow, message, wide, parameter);
}

LRESULT ControlWindow::Send(UINT message, WPARAM wide, LPARAM parameter) const {
    return ::SendMessageW(mWindow, message, wide, parameter);
}

LRESULT ControlWindow::SendText(UINT message, WPARAM wide, const String& text) const {
    return Send(message, wide, reinterpret_cast<LPARAM>(Wide(text)));
}

void ControlWindow::Repaint() const {
    ::InvalidateRect(mWindow, nullptr, TRUE);
}

void ControlWindow::Show(Property what) {
    const Quiet quiet(*this);
    switch (what) {
    case Property::Place:
        ShowPlace();
        return mForm.PlaceLabels();
    case Property::Visible:
        ::ShowWindow(mWindow, mControl.Visible() ? SW_SHOWNA : SW_HIDE);
        return mForm.PlaceLabels();
    case Property::Enabled:
        ::EnableWindow(mWindow, mControl.Enabled());
        return;
    case Property::Caption:
        ::SetWindowTextW(mWindow, Wide(mControl.Caption()));
        return;
    case Property::Font:
        return ShowFont();
    case Property::Colours:
        return Repaint();
    case Property::ToolTip:
        return mForm.Tips().Set(mWindow, mControl.ToolTipText());
    default:
        return;
    }
}

void ControlWindow::ShowPlace() {
    PutAt(PixelPlace(mControl));
}

void ControlWindow::PutAt(const RECT& place) const {
    ::SetWindowPos(mWindow, nullptr, place.left, place.top, place.right - place.left,
                   place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void ControlWindow::ShowFont() {
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(SystemFont(std::as_const(mControl).Font())), TRUE);
}

void ControlWindow::TakeFocus() {
    mForm.GiveFocus(mWindow);
}

bool ControlWindow::Reports(int) const {
    return false;
}

void ControlWindow::Notified(int) {}

bool ControlWindow::KeepsKey(WPARAM) const {
    return false;
}

HBRUSH ControlWindow::Colours(HDC context, UINT) const {
    ::SetTextColor(context, PlainColour(mControl.ForeColor()));
    ::SetBkColor(context, PlainColour(mControl.BackColor()));
    return BrushOf(mControl.BackColor());
}

} // namespace kestrelmoor::platform
