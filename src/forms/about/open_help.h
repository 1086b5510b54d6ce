#pragma once

#include "runtime/forms/peer.h"

namespace kestrelmoor {

/// Opens the help file `gHelpFile` with the program that it belongs to, if there is one; `hWnd` is the window
/// that asks for it. A file that can't be opened is no matter.
extern void (*OpenHelp)(WindowHandle hWnd);

} // namespace kestrelmoor
