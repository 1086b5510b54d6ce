#pragma once

#include "runtime/forms/form.h"

namespace kestrelmoor {

/// The place of a row of `list`, in the form's units and in the client area of `hWndContainer` (0: of the
/// form). False for a row that is not there or not wholly to be seen, and nothing is set.
bool GetItemRect(const ListBox& list, const Form& form, int row, Twips& left, Twips& top, Twips& width,
                 Twips& height, WindowHandle hWndContainer);

} // namespace kestrelmoor
