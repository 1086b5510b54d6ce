#include "platform/windows/monitors.h"

#include "platform/windows/bound_library.h"

namespace kestrelmoor::platform {

namespace {

bool FindMonitor(HWND window, MONITORINFO& monitor) {
    static BoundEntry<decltype(::MonitorFromWindow)> from_window{User32(), "MonitorFromWindow"};
    static BoundEntry<decltype(::GetMonitorInfoW)> get_info{User32(), "GetMonitorInfoW"};
    auto* const MonitorFromWindow = from_window.Find();
    auto* const GetMonitorInfoW = get_info.Find();
    monitor.cbSize = sizeof monitor;
    return MonitorFromWindow && GetMonitorInfoW &&
           GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor) != FALSE;
}

} // namespace

RECT WorkAreaAround(HWND window) {
    MONITORINFO monitor{};
    if (window && FindMonitor(window, monitor))
        return monitor.rcWork;
    RECT area{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

} // namespace kestrelmoor::platform
