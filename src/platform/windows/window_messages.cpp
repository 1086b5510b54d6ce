#include "platform/window_messages.h"

#include "platform/windows/door.h"
#include "platform/windows/window_life.h"

#include <windows.h>

namespace kestrelmoor::platform {

namespace {

using namespace window_message;
static_assert(kSetText == WM_SETTEXT && kGetText == WM_GETTEXT && kGetTextLength == WM_GETTEXTLENGTH);
static_assert(kSysColorChange == WM_SYSCOLORCHANGE && kSettingChange == WM_SETTINGCHANGE);
static_assert(kKeyDown == WM_KEYDOWN && kThemeChanged == WM_THEMECHANGED);

/// One form at a time has a procedure in front of its own.
WindowProcedure gProcedure = nullptr;

// The window must outlast the procedure in front of its own as well.
LRESULT CALLBACK ProcedureDoor(HWND window, UINT message, WPARAM wide, LPARAM parameter) noexcept {
    const ProcedureRunning running(window);
    return BehindDoor([&] {
        return static_cast<LRESULT>(
            gProcedure(reinterpret_cast<WindowHandle>(window), message, wide, parameter));
    });
}

HWND WindowOf(WindowHandle window) {
    return reinterpret_cast<HWND>(window);
}

PixelRectangle Pixels(const RECT& place) {
    return {place.left, place.top, place.right, place.bottom};
}

} // namespace

PreviousProcedure SetWindowProcedure(WindowHandle hWnd, WindowProcedure procedure) {
    gProcedure = procedure;
    return static_cast<PreviousProcedure>(
        ::SetWindowLongW(WindowOf(hWnd), GWL_WNDPROC, reinterpret_cast<LONG>(&ProcedureDoor)));
}

void RestoreWindowProcedure(WindowHandle hWnd, PreviousProcedure previous) {
    ::SetWindowLongW(WindowOf(hWnd), GWL_WNDPROC, static_cast<LONG>(previous));
}

std::intptr_t CallWindowProcW(PreviousProcedure previous, WindowHandle hWnd, std::uint32_t uMsg,
                              std::uintptr_t wParam, std::intptr_t lParam) {
    return ::CallWindowProcW(reinterpret_cast<WNDPROC>(previous), WindowOf(hWnd), uMsg, wParam, lParam);
}

std::intptr_t SendMessageW(WindowHandle hWnd, std::uint32_t uMsg, std::uintptr_t wParam,
                           std::intptr_t lParam) {
    return ::SendMessageW(WindowOf(hWnd), uMsg, wParam, lParam);
}

// Some systems give a place for a row behind the last one, too.
std::optional<PixelRectangle> GetListItemRectangle(WindowHandle hWndList, int row) {
    if (row < 0 || row >= ::SendMessageW(WindowOf(hWndList), LB_GETCOUNT, 0, 0))
        return std::nullopt;
    RECT place{};
    const LRESULT answer = ::SendMessageW(WindowOf(hWndList), LB_GETITEMRECT, static_cast<WPARAM>(row),
                                          reinterpret_cast<LPARAM>(&place));
    return answer == LB_ERR ? std::nullopt : std::optional(Pixels(place));
}

PixelRectangle GetClientRect(WindowHandle hWnd) {
    RECT client{};
    ::GetClientRect(WindowOf(hWnd), &client);
    return Pixels(client);
}

PixelRectangle MapWindowPoints(WindowHandle hWndFrom, WindowHandle hWndTo, const PixelRectangle& rectangle) {
    RECT place{rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
    ::MapWindowPoints(WindowOf(hWndFrom), WindowOf(hWndTo), reinterpret_cast<POINT*>(&place), 2);
    return Pixels(place);
}

} // namespace kestrelmoor::platform
