#pragma once

#include "runtime/text.h"

namespace kestrelmoor::practice {

/// The small letter of a capital one, in the Latin, Greek, Cyrillic and Armenian alphabets; any other
/// character as it stands.
char16_t SmallLetter(char16_t character);

/// A name as the world's tables have it: with small letters.
String FoldName(StringView name);

/// Whether two names of accounts, computers, keys or files are the same, case ignored.
bool SameName(StringView a, StringView b);

} // namespace kestrelmoor::practice
