#pragma once

#include <windows.h>

namespace kestrelmoor::platform {

class FormWindow;

/// The form windows that live, found by their handles: a handle alone does not say whose window it is.
void AddFormWindow(FormWindow& window);
void RemoveFormWindow(FormWindow& window);

/// Null: no form's window.
FormWindow* FormWindowOf(HWND window);

} // namespace kestrelmoor::platform
