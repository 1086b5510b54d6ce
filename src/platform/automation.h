#pragma once

#include "runtime/array.h"
#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor::platform {

/// What a language library or the system hands out by address, in the platform's own shapes: taken over as a
/// value of the program's, and given back on the spot.

/// A counted text (BSTR). Null is an empty text.
String TakeText(char16_t* text);

/// An array of signed 16-bit numbers in one dimension (SAFEARRAY of VT_I2), with its first index. Null, or an
/// array of another kind, has no storage.
Array<std::int16_t> TakeNumbers(void* array);

} // namespace kestrelmoor::platform
