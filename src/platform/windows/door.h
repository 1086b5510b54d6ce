#pragma once

#include "platform/process.h"

#include <new>

namespace kestrelmoor::platform {

/// Runs what a window procedure, hook or timer callback does. No exception may cross a frame of the system,
/// so an error that nobody trapped ends the process here, with its box.
template <class Action>
auto BehindDoor(const Action& action) noexcept -> decltype(action()) {
    try {
        return action();
    } catch (const RuntimeError& error) {
        EndByError(error);
    } catch (const std::bad_alloc&) {
        EndByError(
            RuntimeError(error_number::kOutOfMemory, {}, ErrorDescription(error_number::kOutOfMemory)));
    }
}

} // namespace kestrelmoor::platform
