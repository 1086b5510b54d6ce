#pragma once

#include "runtime/forms/peer.h"

namespace kestrelmoor::platform {

/// The desktop of this process: makes the windows of forms and hands on their events. There is one; it lives
/// as long as the process.
Desktop& TheDesktop();

} // namespace kestrelmoor::platform
