#pragma once

#include "platform/input_hooks.h"
#include "platform/window_messages.h"
#include "runtime/forms/form.h"

namespace kestrelmoor::practice {

// Where windows stand, in pixels of 15 twips, out of what the model says.

inline constexpr Twips kTwipsPerPixel = 15;
inline constexpr int kRowHeight = 13;

/// Rows of a list that can be seen whole; one at least.
int RowsShown(const ListBox& list);

/// The client area: a border is two pixels, the bar of a list with more rows than it shows 17.
platform::PixelRectangle ClientArea(const Form& form);
platform::PixelRectangle ClientArea(const Control& control);

/// The corner of the client area on the screen. Every form stands at the same place.
platform::ScreenPoint Corner(const Form& form);
platform::ScreenPoint Corner(const Control& control);

/// What of a form lies at a place on the screen; null: none of its controls, or not the form.
Control* ControlAt(const Form& form, const platform::ScreenPoint& point);

/// The middle of a control on the screen.
platform::ScreenPoint Middle(const Control& control);

} // namespace kestrelmoor::practice
