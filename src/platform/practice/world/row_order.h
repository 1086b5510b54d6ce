#pragma once

#include "runtime/text.h"

namespace kestrelmoor::practice {

/// The order that the real platform gives to names, case ignored: blanks, punctuation, symbols, digits,
/// letters, an accent after its plain letter. Hyphens and apostrophes decide last of all: a text without one
/// goes first, and then the one where it comes later. Below 0, 0, above 0.
int CompareInRowOrder(StringView a, StringView b);

/// A key that two texts share exactly when they compare as 0.
String RowOrderKey(StringView text);

} // namespace kestrelmoor::practice
