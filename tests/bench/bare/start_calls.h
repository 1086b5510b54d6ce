#pragma once

#include "tests/bench/bare/accounts.h"

namespace kestrelmoor::bench {

// The system's calls that every start of Moorlink.exe makes up to its watch or its window, in their order.
// The language library is loaded between the two.

void CallsAheadOfTheLanguage(const wchar_t* library);

/// `accounts` learns who the user is. Returns the servers in the registry, one text behind another and an
/// empty one at the end.
const wchar_t* CallsBehindTheLanguage(Accounts& accounts);

} // namespace kestrelmoor::bench
