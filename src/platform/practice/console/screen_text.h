#pragma once

#include "platform/practice/world/browse_dialog.h"
#include "platform/practice/world/desk.h"
#include "runtime/forms/form.h"

#include <string>

namespace kestrelmoor::practice {

/// A form as it can be seen: a line for its caption and one for each visible control, in tab order, with its
/// name, what it shows, and what sets it apart; what a user control is made of stands under it. ">" marks the
/// focus; masked texts stay masked.
std::string TextOfScreen(const Form& form);

/// A dialog to choose a folder: its prompt and its rows with their numbers, what stands in a row under it.
std::string TextOfBrowse(const BrowseDialog& dialog);

/// A message box with the button that was pressed.
std::string TextOfBox(const Box& box);

} // namespace kestrelmoor::practice
