#pragma once

#include "network_backend.h"

namespace kestrelmoor::stand_in {

/// The back end that the environment of the process asks for, chosen at the first call and kept:
/// KESTRELMOOR_BRIDGE=<address>:<port> the bridge to real servers, KESTRELMOOR_WORLD=<path> the practice
/// world of a file. Without one, every call answers 2138, as on a computer whose workstation service is not
/// started.
NetworkBackend& Backend();

} // namespace kestrelmoor::stand_in
