#pragma once

#include <cstdint>

namespace kestrelmoor::platform {

/// What a call into the system answered, together with the thread's last error as the call left it: cleared
/// ahead of the call and read at its return, so that nothing in between can disturb it.
template <class Value>
struct CallResult {
    Value value{};
    std::uint32_t last_error = 0;
};

} // namespace kestrelmoor::platform
