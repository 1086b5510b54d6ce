#pragma once

#include "platform/call_result.h"

#include <windows.h>

namespace kestrelmoor::platform {

/// Makes one call into the system with the last error cleared ahead of it and read at its return. `call`
/// must do nothing else: whatever it needs is bound and built before.
template <class Call>
auto Observed(Call call) {
    ::SetLastError(0);
    const auto value = call();
    const DWORD last_error = ::GetLastError();
    return CallResult<decltype(call())>{value, last_error};
}

} // namespace kestrelmoor::platform
