#pragma once

#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

/// The tokens of the argument text: parted by blanks, where a pair of double quotes protects blanks. Quotes
/// stay in their token, and of several blanks in a row all but one stand at the head of the next token. An
/// unterminated quote makes the rest of the line one token.
StringList SplitCommandLine(const String& sLine);

/// What stands between the quote that a token begins with and the next one, or the token's end; a token
/// without a quote at its front as it stands.
String StripQuotes(const String& sToken);

/// Reads the command line into the program's state. `nLang`: in, the stored language number, out, the
/// commanded one. True: a token was bad, the user has been told, and what stands behind it was not read.
bool ParseCommandLine(std::int16_t& nLang);

} // namespace kestrelmoor
