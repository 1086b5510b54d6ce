#pragma once

#include "network_backend.h"

#include <memory>

namespace kestrelmoor::stand_in {

/// Sends every call as one JSON line to the bridge that listens at `address` ("127.0.0.1:1234"). A bridge
/// that can't be reached answers 2138, one that talks nonsense 59; 87 where a text can't be sent, for an
/// unpaired surrogate in it.
std::unique_ptr<NetworkBackend> MakeBridgeBackend(const String& address);

} // namespace kestrelmoor::stand_in
