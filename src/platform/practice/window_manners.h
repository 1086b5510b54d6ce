#pragma once

#include "runtime/forms/controls.h"

namespace kestrelmoor::practice {

// What the system's own windows do with input that their form has let pass.

/// A key goes down: an edit moves its caret or deletes, a list moves its current row, Space presses a button.
void TakeKey(Control& control, int nKeyCode);

/// A character arrives: an edit puts it in place of its selection, a list goes to the next row that it
/// begins.
void TakeCharacter(Control& control, char16_t character);

/// The mouse goes down: an edit puts its caret there, which is behind its text.
void TakePress(Control& control);

/// The mouse comes up where it went down: a button is pressed.
void TakeClick(Control& control);

} // namespace kestrelmoor::practice
