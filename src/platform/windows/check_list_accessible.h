#pragma once

#include <windows.h>

namespace kestrelmoor::platform {

/// Posted to a list in which the mark of the row WPARAM is to be clicked on: the row's default action. What a
/// mark's turn opens must not keep the asking program waiting, so it isn't done at once.
constexpr UINT kPressMark = WM_APP + 1;

/// The answer to WM_GETOBJECT of a list with check marks: the system's own object for lists, whose rows are
/// check buttons that tell their marks and turn them. 0: the system lacks what that takes, and answers as for
/// any list.
LRESULT AccessibleAnswer(HWND list, WPARAM flags, LPARAM object);

/// Tells whoever listens that a row's mark has been turned.
void TellMarkChanged(HWND list, int row);

} // namespace kestrelmoor::platform
