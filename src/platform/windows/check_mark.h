#pragma once

#include <windows.h>

namespace kestrelmoor::platform {

struct CheckMark {
    bool checked;
    bool enabled;
};

/// Draws the box of a check mark with the visual style of the window, without one as the system always did.
void DrawCheckMark(HWND window, HDC context, const RECT& place, CheckMark mark);

} // namespace kestrelmoor::platform
