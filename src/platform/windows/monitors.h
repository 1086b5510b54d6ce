#pragma once

#include <windows.h>

namespace kestrelmoor::platform {

/// The part of the screen that windows may cover, in pixels, without the task bar: that of the monitor that
/// holds most of `window`. Null, or a system that knows one monitor only: that of the first monitor.
RECT WorkAreaAround(HWND window);

} // namespace kestrelmoor::platform
