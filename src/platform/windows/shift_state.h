#pragma once

namespace kestrelmoor::platform {

/// Which of Shift, Ctrl and Alt were held at the message in hand, in the masks of the form model.
int ShiftState();

} // namespace kestrelmoor::platform
