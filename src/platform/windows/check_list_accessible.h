#pragma once

#include <windows.h>

namespace kestrelmoor::platform {

/// The answer to WM_GETOBJECT of a list with check marks: the system's own object for lists, whose rows are
/// check buttons that tell their marks. 0: the system lacks what that takes, and answers as for any list.
LRESULT AccessibleAnswer(HWND list, WPARAM flags, LPARAM object);

/// Tells whoever listens that a row's mark has been turned.
void TellMarkChanged(HWND list, int row);

} // namespace kestrelmoor::platform
