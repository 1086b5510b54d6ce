#pragma once

#include "runtime/forms/geometry.h"

#include <windows.h>

namespace kestrelmoor::platform {

/// The plain colour, or the present colour that a reference stands for.
COLORREF PlainColour(Colour colour);

/// A brush of that colour. It is shared and lives as long as the process.
HBRUSH BrushOf(Colour colour);

} // namespace kestrelmoor::platform
