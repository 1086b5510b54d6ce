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

/// A length in pixels by the display's resolution: at 96, 120, 144 and 192 dots per inch.
inline int AtResolution(int at96, int at120, int at144, int at192) {
    switch (static_cast<int>(1440 / Application::Current().CurrentDesktop()->TwipsPerPixelX())) {
    case 96:
        return at96;
    case 120:
        return at120;
    case 144:
        return at144;
    case 192:
        return at192;
    default:
        ADD_FAILURE() << "not told for this resolution";
        return 0;
    }
}

} // namespace kestrelmoor::tests
