#pragma once

#include "runtime/forms/peer.h"

namespace kestrelmoor {

/// Opens the help file `gHelpFile` with the program that it belongs to, if there is one; `hWnd` is the window
/// that asks for it. Help can't be opened yet: nothing happens.
extern void (*OpenHelp)(WindowHandle hWnd);

} // namespace kestrelmoor
