#pragma once

#include "runtime/forms/design.h"

namespace kestrelmoor {

/// The password window as designed: all controls of all its layouts at once, the gaps not yet closed.
extern const FormDesign kfrmPassDesign;

} // namespace kestrelmoor
