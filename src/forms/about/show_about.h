#pragma once

namespace kestrelmoor {

/// Shows the about window modally, without an owner, and returns when it has been closed. There is no such
/// window yet: nothing is shown.
extern void (*ShowAbout)();

} // namespace kestrelmoor
