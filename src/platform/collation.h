#pragma once

#include "runtime/text.h"

namespace kestrelmoor::platform {

/// Comparison of two texts in the user's language, case ignored: below 0, 0 (the same), above 0.
int CompareText(StringView a, StringView b);

/// The same for all texts that `CompareText` finds the same, different for any others; for look-ups by name.
String FoldCase(StringView text);

/// Order of two rows in the platform's sorted list. It is not that of code points: case does not count, a
/// hyphen or an apostrophe inside a name hardly counts, a leading blank counts first.
int CompareRows(StringView a, StringView b);

} // namespace kestrelmoor::platform
