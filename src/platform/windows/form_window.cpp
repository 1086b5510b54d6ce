#include "platform/windows/form_window.h"

#include "platform/visual_style.h"
#include "platform/windows/colours.h"
#include "platform/windows/control_factory.h"
#include "platform/windows/control_window.h"
#include "platform/windows/door.h"
#include "platform/windows/form_registry.h"
#include "platform/windows/monitors.h"
#include "platform/windows/pixels.h"
#include "platform/windows/wide_text.h"
#include "platform/windows/window_life.h"
#include "runtime/forms/application.h"

#include <algorithm>

namespace kestrelmoor::platform {

namespace {

constexpr DWORD kStyle = WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
constexpr WORD kProgramIcon = 1;
constexpr std::uint32_t kIconSizes[] = {ICON_SMALL, ICON_BIG};

DWORD ExtendedStyle(const Form& form) {
    return kExtendedStyle | (form.ShownInTaskBar() ? WS_EX_APPWINDOW : 0U);
}

// A second form of the name finds the class there; that is as good.
void RegisterFormClass(const String& name, WNDPROC procedure) {
    WNDCLASSEXW form_class{};
    form_class.cbSize = sizeof form_class;
    form_class.lpfnWndProc = procedure;
    form_class.hInstance = ::GetModuleHandleW(nullptr);
    form_class.hIcon = ::LoadIconW(form_class.hInstance, MAKEINTRESOURCEW(kProgramIcon));
    form_class.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    form_class.lpszClassName = Wide(name);
    ::RegisterClassExW(&form_class);
}

RECT WindowRect(HWND window) {
    RECT place{};
    ::GetWindowRect(window, &place);
    return place;
}

/// The start of a length that is centred in a span and begins inside the screen's.
LONG Centred(LONG length, LONG from, LONG to, LONG screen_from, LONG screen_to) {
    const LONG start = from + (to - from - length) / 2;
    return std::max(screen_from, std::min(start, screen_to - length));
}

} // namespace

FormWindow::FormWindow(Form& form) : mForm(form) {
    RegisterFormClass(form.Name(), &FormWindow::Procedure);
    mWindow.Reset(::CreateWindowExW(ExtendedStyle(form), Wide(form.Name()), Wide(form.Caption()), kStyle,
                                    CW_USEDEFAULT, CW_USEDEFAULT, 0, 0, nullptr, nullptr,
                                    ::GetModuleHandleW(nullptr), nullptr));
    if (!mWindow)
        RaiseError(error_number::kOutOfMemory);
    mTips = ToolTips(Handle());
    ::SetWindowLongW(Handle(), GWL_USERDATA, reinterpret_cast<LONG>(this));
    AddFormWindow(*this);
    ShowSize();
}

// What the form has put in front of this procedure or given to the window ends with the form.
FormWindow::~FormWindow() {
    RemoveFormWindow(*this);
    ::SetWindowLongW(Handle(), GWL_WNDPROC, reinterpret_cast<LONG>(&FormWindow::Procedure));
    ::SetWindowLongW(Handle(), GWL_USERDATA, 0);
    for (const std::uint32_t size : kIconSizes)
        SetWindowIcon(reinterpret_cast<WindowHandle>(Handle()), size, {});
    DestroyWhenIdle(std::move(mWindow));
}

FormWindow* FormWindow::Holding(HWND window) {
    while (window && (::GetWindowLongW(window, GWL_STYLE) & WS_CHILD))
        window = ::GetParent(window);
    return FormWindowOf(window);
}

std::unique_ptr<ControlPeer> FormWindow::MakeControlPeer(Control& control) {
    auto peer = platform::MakeControlPeer(*this, control);
    PlaceLabels();
    return peer;
}

void FormWindow::PlaceLabels() const {
    for (const Control* const control : mForm.AllControls())
        if (control->Kind() == ControlKind::Label && control->Peer())
            static_cast<ControlWindow*>(control->Peer())->ShowPlace();
}

void FormWindow::Show(Property what) {
    switch (what) {
    case Property::Place:
        return ShowSize();
    case Property::Visible:
        return ShowVisible();
    case Property::Enabled:
        ::EnableWindow(Handle(), mForm.InputEnabled());
        return;
    case Property::Caption:
        ::SetWindowTextW(Handle(), Wide(mForm.Caption()));
        return;
    case Property::Colours:
        ::InvalidateRect(Handle(), nullptr, TRUE);
        return;
    case Property::MousePointer:
        return PointerChanged();
    default:
        return;
    }
}

void FormWindow::TakeFocus() {
    GiveFocus(Handle());
}

RECT FormWindow::Frame() const {
    RECT frame{};
    ::AdjustWindowRectEx(&frame, kStyle, FALSE, ExtendedStyle(mForm));
    return frame;
}

Twips FormWindow::FrameWidth() const {
    const RECT frame = Frame();
    return static_cast<Twips>(frame.right - frame.left) * TwipsPerPixelX();
}

Twips FormWindow::FrameHeight() const {
    const RECT frame = Frame();
    return static_cast<Twips>(frame.bottom - frame.top) * TwipsPerPixelY();
}

void FormWindow::ShowSize() const {
    const RECT frame = Frame();
    ::SetWindowPos(Handle(), nullptr, 0, 0, PixelX(mForm.ClientWidth()) + frame.right - frame.left,
                   PixelY(mForm.ClientHeight()) + frame.bottom - frame.top,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::ShowVisible() {
    if (!mForm.Visible())
        return Hide();
    if (mForm.Owner())
        ::SetWindowLongW(Handle(), GWL_HWNDPARENT, static_cast<LONG>(mForm.Owner()->Window()));
    if (!mPlaced)
        PlaceOnScreen();
    mPlaced = true;
    ::ShowWindow(Handle(), SW_SHOW);
    // The first call may do what the program was started with, which may be to hide: there is no other
    // window.
    if (!::IsWindowVisible(Handle()))
        ::ShowWindow(Handle(), SW_SHOW);
    ::SetForegroundWindow(Handle());
}

// The owner comes to front by name: left to itself the system may choose another program's window.
void FormWindow::Hide() {
    const HWND owner = ::GetWindow(Handle(), GW_OWNER);
    if (owner && ::GetActiveWindow() == Handle() && ::IsWindowEnabled(owner))
        ::SetActiveWindow(owner);
    ::ShowWindow(Handle(), SW_HIDE);
}

void FormWindow::PlaceOnScreen() const {
    const HWND owner = mForm.CentredOnOwner() ? ::GetWindow(Handle(), GW_OWNER) : nullptr;
    const RECT screen = WorkAreaAround(owner);
    const RECT around = owner ? WindowRect(owner) : screen;
    const RECT own = WindowRect(Handle());
    const LONG left = Centred(own.right - own.left, around.left, around.right, screen.left, screen.right);
    const LONG top = Centred(own.bottom - own.top, around.top, around.bottom, screen.top, screen.bottom);
    ::SetWindowPos(Handle(), nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) noexcept {
    const ProcedureRunning running(window);
    return BehindDoor([&]() -> LRESULT {
        auto* const self = reinterpret_cast<FormWindow*>(::GetWindowLongW(window, GWL_USERDATA));
        return self ? self->Process(message, wide, parameter)
                    : ::DefWindowProcW(window, message, wide, parameter);
    });
}

} // namespace kestrelmoor::platform
