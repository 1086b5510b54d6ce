#pragma once

#include <cstdint>

namespace kestrelmoor {

/// The program's only entry, run once: brings up words, log and settings, finds out who the user is, and
/// then shows the usage, opens the password window or runs the expiry watch. The process lives on as long as
/// a window is open.
void Main();

/// The packed Windows version (see `gWinVersion`), 0 when the platform can't tell.
std::int32_t GetWinVersion();

} // namespace kestrelmoor
