#pragma once

#include "runtime/text.h"

namespace kestrelmoor {

/// Whether `letter`, its case ignored, is the one behind the first "&" of the caption. "&&" stands for an
/// ampersand and marks nothing.
bool HasAccelerator(StringView caption, char16_t letter);

} // namespace kestrelmoor
