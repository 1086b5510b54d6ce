#include "platform/window_messages.h"

#include "platform/practice/list_views.h"
#include "platform/practice/system_windows.h"
#include "platform/practice/window_manners.h"
#include "platform/practice/window_places.h"
#include "platform/practice/windows.h"
#include "platform/practice/world/world.h"
#include "platform/shell_namespace.h"

namespace kestrelmoor::platform {

namespace {

using practice::TheWorld;
using practice::Windows;

/// What a window does of its own with a message: a control takes a key, all else is nothing to it.
std::intptr_t OwnAnswer(WindowHandle window, std::uint32_t message, std::uintptr_t wide) {
    Control* const control = Windows::Current().FindControl(window);
    if (control && message == window_message::kKeyDown)
        practice::TakeKey(*control, static_cast<int>(wide));
    return 0;
}

ScreenPoint CornerOf(WindowHandle window) {
    if (const Form* const form = Windows::Current().FindForm(window))
        return practice::Corner(*form);
    const Control* const control = Windows::Current().FindControl(window);
    return control ? practice::Corner(*control) : ScreenPoint{};
}

} // namespace

PreviousProcedure SetWindowProcedure(WindowHandle hWnd, WindowProcedure procedure) {
    if (TheWorld().calls.Enter("SetWindowProcedure", {hWnd}))
        return 0;
    const PreviousProcedure previous = Windows::Current().Procedure(hWnd);
    Windows::Current().SetProcedure(hWnd, reinterpret_cast<PreviousProcedure>(procedure));
    return previous;
}

void RestoreWindowProcedure(WindowHandle hWnd, PreviousProcedure previous) {
    TheWorld().calls.Enter("RestoreWindowProcedure", {hWnd, previous});
    Windows::Current().SetProcedure(hWnd, previous);
}

std::intptr_t CallWindowProcW(PreviousProcedure previous, WindowHandle hWnd, std::uint32_t uMsg,
                              std::uintptr_t wParam, std::intptr_t lParam) {
    TheWorld().calls.Enter("CallWindowProcW", {previous, hWnd, uMsg, wParam, lParam});
    return previous == Windows::kOwnProcedure
               ? OwnAnswer(hWnd, uMsg, wParam)
               : reinterpret_cast<WindowProcedure>(previous)(hWnd, uMsg, wParam, lParam);
}

std::intptr_t SendMessageW(WindowHandle hWnd, std::uint32_t uMsg, std::uintptr_t wParam,
                           std::intptr_t lParam) {
    const bool failed = TheWorld().calls.Enter("SendMessageW", {hWnd, uMsg, wParam, lParam}).has_value();
    if (uMsg == window_message::kSetText || uMsg == browse_message::kSetSelectionW)
        TheWorld().calls.Pass("SendMessageW", StringView(reinterpret_cast<const char16_t*>(lParam)));
    if (failed)
        return 0;
    if (practice::SystemWindow* const window = practice::SystemWindows::Current().Find(hWnd))
        return practice::SystemWindows::Answer(*window, uMsg, wParam, lParam);
    return practice::DeliverMessage(hWnd, uMsg, wParam, lParam);
}

std::optional<PixelRectangle> GetListItemRectangle(WindowHandle hWndList, int row) {
    const auto* const list = dynamic_cast<const ListBox*>(Windows::Current().FindControl(hWndList));
    if (TheWorld().calls.Enter("GetListItemRectangle", {hWndList, row}) || !list || row < 0 ||
        row >= list->ListCount())
        return std::nullopt;
    const int top = (row - practice::ListViews::Current().TopRow(*list)) * practice::kRowHeight;
    return PixelRectangle{0, top, practice::ClientArea(*list).right, top + practice::kRowHeight};
}

PixelRectangle GetClientRect(WindowHandle hWnd) {
    if (TheWorld().calls.Enter("GetClientRect", {hWnd}))
        return {};
    if (const Form* const form = Windows::Current().FindForm(hWnd))
        return practice::ClientArea(*form);
    const Control* const control = Windows::Current().FindControl(hWnd);
    return control ? practice::ClientArea(*control) : PixelRectangle{};
}

PixelRectangle MapWindowPoints(WindowHandle hWndFrom, WindowHandle hWndTo, const PixelRectangle& rectangle) {
    if (TheWorld().calls.Enter("MapWindowPoints", {hWndFrom, hWndTo}))
        return rectangle;
    const ScreenPoint from = CornerOf(hWndFrom);
    const ScreenPoint to = CornerOf(hWndTo);
    const int across = from.x - to.x;
    const int down = from.y - to.y;
    return {rectangle.left + across, rectangle.top + down, rectangle.right + across, rectangle.bottom + down};
}

} // namespace kestrelmoor::platform
