#pragma once

#include "runtime/text.h"

#include <cstdint>
#include <map>

namespace kestrelmoor::tests {

/// What the language of the tests says for a message number; any other number is unknown to it. A message
/// names its number and shows each of its arguments: "message 12: %1, %2, %3". A noun shows its number and
/// its count: "noun 412 of 14". The font is "Test Sans" with the character set 238.
using TestTexts = std::map<std::int16_t, String>;

TestTexts StandardTexts();

/// Puts the tests' language in the place of the program's. It is no file and is never unloaded.
void SpeakTestLanguage(TestTexts texts = StandardTexts());

} // namespace kestrelmoor::tests
