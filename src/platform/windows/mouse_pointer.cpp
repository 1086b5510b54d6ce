#include "platform/mouse_pointer.h"

#include <windows.h>

namespace kestrelmoor::platform {

bool GetCursorPos(ScreenPoint& point) {
    POINT place{};
    if (!::GetCursorPos(&place))
        return false;
    point = {place.x, place.y};
    return true;
}

bool ClientToScreen(WindowHandle hWnd, ScreenPoint& point) {
    POINT place{point.x, point.y};
    if (!::ClientToScreen(reinterpret_cast<HWND>(hWnd), &place))
        return false;
    point = {place.x, place.y};
    return true;
}

bool PtInRect(const PixelRectangle& rectangle, const ScreenPoint& point) {
    const RECT place{rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
    return ::PtInRect(&place, {point.x, point.y}) != FALSE;
}

std::uintptr_t LoadCursorW(int nNumber) {
    return reinterpret_cast<std::uintptr_t>(::LoadCursorW(nullptr, MAKEINTRESOURCEW(nNumber)));
}

} // namespace kestrelmoor::platform
