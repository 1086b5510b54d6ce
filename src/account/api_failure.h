#pragma once

#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

/// The text for the user of a failed call, which also goes to the log as an error line when diagnosing.
String FailedCall(std::uint32_t nCode, const String& sApiName);

} // namespace kestrelmoor
