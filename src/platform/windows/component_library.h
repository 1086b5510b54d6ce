#pragma once

namespace kestrelmoor::platform {

/// Makes the component library ready for this thread, which the shell's folders need. Once ready it stays,
/// and where it can't be had the shell says so by itself.
void NeedComponents();

} // namespace kestrelmoor::platform
