#pragma once

#include "platform/window_messages.h"
#include "runtime/forms/form.h"

namespace kestrelmoor {

/// Whether the mouse is over a control of the form now. False also where that can't be told.
bool IsMouseOver(const Control& control, const Form& form);

/// Where a control that stands on the form itself is on the screen, in pixels. False, with the rectangle
/// undefined, where it has no place (a timer, a line) or the form no window.
bool GetControlScreenRect(const Control& control, platform::PixelRectangle& rectangle, const Form& form);

} // namespace kestrelmoor
