#pragma once

#include "tests/native/explorer/explorer.h"

#include <vector>

namespace kestrelmoor::tests {

/// The starts that are explored: command lines and worlds that open the windows in all their modes.
const std::vector<StartOfExploration>& StartsOfExploration();

} // namespace kestrelmoor::tests
