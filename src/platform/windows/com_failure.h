#pragma once

#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor::platform {

/// Raises the run-time error of a failed COM result (see `ErrorNumberOfComResult`), or of the small number of
/// an exception. Without a description it has the system's words for the result, else the run-time's.
[[noreturn]] void RaiseComFailure(std::int32_t result, String source, String description);

/// Ahead of calls whose failure may leave words for the thread: forgets those of an earlier one.
void ForgetFailureWords();

/// Raises the error of a failed result with the words that the service left for the thread, where it left
/// any; a result of 0 or above raises nothing.
void RaiseIfServiceFailed(std::int32_t result);

} // namespace kestrelmoor::platform
