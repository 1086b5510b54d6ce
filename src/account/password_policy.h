#pragma once

#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

/// The minimum password length of a target, empty for the local computer; 0 when nothing could be learned.
std::int32_t GetMinPwdLength(const String& sTarget);

} // namespace kestrelmoor
