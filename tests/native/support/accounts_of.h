#pragma once

#include "platform/practice/world/network.h"

namespace kestrelmoor::tests {

/// The accounts of a computer or domain by any of its names, with or without backslashes; empty: the local
/// computer's. Found by another road than the one that a change takes. Null: nobody has that name.
practice::AccountStore* AccountsOf(practice::Network& network, StringView place);

} // namespace kestrelmoor::tests
