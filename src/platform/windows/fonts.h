#pragma once

#include "runtime/forms/font.h"

#include <windows.h>

namespace kestrelmoor::platform {

/// The system's font for one of the model's, at the display's resolution. Equal fonts share one handle, which
/// lives as long as the process.
HFONT SystemFont(const Font& font);

/// Width of a text and height of a line in a font, in pixels.
SIZE TextExtent(HFONT font, StringView text);

/// Room for a caption in a font, in pixels: for all of its lines, without the mark of its accelerator, and
/// for what the last letter leans out of its box.
SIZE CaptionExtent(HFONT font, StringView caption);

} // namespace kestrelmoor::platform
