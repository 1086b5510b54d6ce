#pragma once

#include "network_backend.h"

#include <memory>

namespace kestrelmoor::stand_in {

/// Answers from the practice world in the file at `path`, and keeps the file up to date: whatever a call has
/// changed stands in it when the call returns. Null, with a line on standard error, where the file can't be
/// used.
std::unique_ptr<NetworkBackend> MakePracticeBackend(const String& path);

} // namespace kestrelmoor::stand_in
