#include "platform/mouse_pointer.h"

#include "platform/practice/window_places.h"
#include "platform/practice/windows.h"
#include "platform/practice/world/world.h"

namespace kestrelmoor::platform {

namespace {

using practice::TheWorld;
using practice::Windows;

/// The numbers of the system's pointers stand beside one another.
constexpr std::uintptr_t kFirstPointer = 0x10000000;

std::optional<ScreenPoint> CornerOf(WindowHandle window) {
    if (const Form* const form = Windows::Current().FindForm(window))
        return practice::Corner(*form);
    const Control* const control = Windows::Current().FindControl(window);
    return control ? std::optional(practice::Corner(*control)) : std::nullopt;
}

} // namespace

bool GetCursorPos(ScreenPoint& point) {
    if (TheWorld().calls.Enter("GetCursorPos"))
        return false;
    point = {TheWorld().mouse.x, TheWorld().mouse.y};
    return true;
}

bool ClientToScreen(WindowHandle hWnd, ScreenPoint& point) {
    const auto corner = CornerOf(hWnd);
    if (TheWorld().calls.Enter("ClientToScreen", {hWnd, point.x, point.y}) || !corner)
        return false;
    point = {point.x + corner->x, point.y + corner->y};
    return true;
}

bool PtInRect(const PixelRectangle& rectangle, const ScreenPoint& point) {
    return point.x >= rectangle.left && point.x < rectangle.right && point.y >= rectangle.top &&
           point.y < rectangle.bottom;
}

std::uintptr_t LoadCursorW(int nNumber) {
    return TheWorld().calls.Enter("LoadCursorW", {nNumber})
               ? 0
               : kFirstPointer + static_cast<std::uintptr_t>(nNumber);
}

} // namespace kestrelmoor::platform
