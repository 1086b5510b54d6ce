#pragma once

#include "runtime/forms/form.h"

namespace kestrelmoor {

/// Shows the settings modally over `owner` and returns when they have been closed. Each opening starts from
/// the program's state.
extern void (*ShowSettings)(Form& owner);

} // namespace kestrelmoor
