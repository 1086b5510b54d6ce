#pragma once

#include "runtime/forms/control.h"

#include <windows.h>

namespace kestrelmoor::platform {

/// Dots per inch of the display, as they stood when the process first asked.
struct Resolution {
    int x;
    int y;
};
const Resolution& DisplayResolution();

Twips TwipsPerPixelX();
Twips TwipsPerPixelY();

/// The pixel nearest to a place in twips.
int PixelX(Twips x);
int PixelY(Twips y);

/// Where a control stands in its container, in pixels. Each edge is rounded as a place on the form, so that
/// equal gaps stay equal at every resolution.
RECT PixelPlace(const Control& control);

} // namespace kestrelmoor::platform
