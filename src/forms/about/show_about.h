#pragma once

namespace kestrelmoor {

/// Shows the about window modally over the form in front, and returns when it has been closed.
extern void (*ShowAbout)();

} // namespace kestrelmoor
