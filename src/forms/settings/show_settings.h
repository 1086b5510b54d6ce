#pragma once

#include "runtime/forms/form.h"

namespace kestrelmoor {

/// Shows the settings modally over `owner` and returns when they have been closed. There is no settings
/// window yet: nothing is shown and nothing changes.
extern void (*ShowSettings)(Form& owner);

} // namespace kestrelmoor
