#pragma once

#include "platform/visual_style.h"
#include "runtime/forms/form.h"

namespace kestrelmoor {

/// Learns whether the program's windows are drawn with a visual style, whether the theme library can be
/// called, and which mask password boxes have.
void UpdateThemeState();

/// Opens a theme for the class list if the program is themed and none is open; closes an open one first when
/// the program isn't themed or `bForce` is set. Nothing without a theme library.
void EnsureThemeData(platform::OwnedTheme& hTheme, WindowHandle hWnd, bool bForce, const String& sClassList);

/// A plain colour as it stands, with nothing opened. A system reference: the theme's plain colour; without a
/// theme the system's present one with `bUseSystem`, otherwise the reference itself. `bClose` closes the
/// theme that has answered.
Colour GetThemedColor(Colour nColour, WindowHandle hWnd, platform::OwnedTheme& hTheme, bool bForce,
                      const String& sClassList, bool bClose, bool bUseSystem);

/// Colours a form and all its controls by their kinds.
void ApplyThemedColors(Form& form);

/// Colours one text box: tinted while it has the focus.
void ApplyTextBoxColors(TextBox& box, Form& form);

/// Each channel the mean of the two, rounded down; references are resolved first.
Colour MixColors(Colour a, Colour b);

/// What a text box is tinted with while it has the focus: pale yellow.
inline constexpr Colour kFocusTint = 0x80FFFF;

/// The present plain colour of a system reference; a plain colour as it stands.
Colour ResolveColor(Colour nColour);

/// Loads the program's icon anew in both sizes that the system asks for, and frees the window's former ones.
void RefreshWindowIcons(WindowHandle hWnd);

} // namespace kestrelmoor
