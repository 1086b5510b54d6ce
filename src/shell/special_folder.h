#pragma once

#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

/// Path of a shell folder by its CSIDL number, empty when the folder has none. Raises the shell's failure.
String GetSpecialFolder(std::int32_t nFolder);

} // namespace kestrelmoor
