#pragma once

#include "runtime/forms/font.h"
#include "runtime/forms/geometry.h"

namespace kestrelmoor::platform {

/// How wide a text is in a font at the display's resolution. Each character counts as it stands, an
/// ampersand too.
Twips TextWidth(const Font& font, StringView text);

} // namespace kestrelmoor::platform
