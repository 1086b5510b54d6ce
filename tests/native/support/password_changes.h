#pragma once

#include "platform/practice/world/network.h"

namespace kestrelmoor::tests {

// After each change of a password that a network answers as done, in whatever test, the new password must log
// on and the old one must not: a change that doesn't hold fails the test that made it.

/// The accounts of a computer or domain by any of its names, with or without backslashes; empty: the local
/// computer's. Found by another road than the one that a change takes. Null: nobody has that name.
practice::AccountStore* AccountsOf(practice::Network& network, StringView place);

} // namespace kestrelmoor::tests
