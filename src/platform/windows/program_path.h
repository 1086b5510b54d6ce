#pragma once

#include "runtime/text.h"

namespace kestrelmoor::platform {

/// The full path of the executable.
String ProgramPath();

} // namespace kestrelmoor::platform
