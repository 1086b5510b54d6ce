#pragma once

#include <windows.h>

namespace kestrelmoor::bench {

// What the password window asks of the system beyond its controls, in the order of its opening.

/// Whether cues are shown, the common controls, and the two hooks of the cues.
void CallsAheadOfTheWindow();

/// The colours of the visual style and its mask; without a style those of the system, and an asterisk.
struct Look {
    COLORREF face;
    COLORREF face_text;
    COLORREF back;
    COLORREF back_text;
    wchar_t mask;
};
Look AskForLook(HWND window);

/// The icon in both sizes, and the cues hidden.
void CallsBehindTheControls(HWND window);

} // namespace kestrelmoor::bench
