#include "forms/about/open_help.h"

namespace kestrelmoor {

void (*OpenHelp)(WindowHandle hWnd) = [](WindowHandle /*hWnd*/) {};

} // namespace kestrelmoor
