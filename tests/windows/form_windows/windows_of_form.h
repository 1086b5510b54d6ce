#pragma once

#include "tests/form_model_shared/shown_form.h"

#include <windows.h>

namespace kestrelmoor::tests {

inline HWND WindowOf(const Control& control) {
    return reinterpret_cast<HWND>(control.Peer()->Window());
}
inline HWND WindowOf(const Form& form) {
    return reinterpret_cast<HWND>(form.Window());
}

/// Where a control's window stands on its form, in pixels.
inline RECT PlaceOnForm(const Control& control) {
    RECT place{};
    ::GetWindowRect(WindowOf(control), &place);
    ::MapWindowPoints(nullptr, WindowOf(control.Parent()), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

inline LRESULT Send(const Control& control, UINT message, WPARAM wide = 0, LPARAM parameter = 0) {
    return ::SendMessageW(WindowOf(control), message, wide, parameter);
}

} // namespace kestrelmoor::tests
