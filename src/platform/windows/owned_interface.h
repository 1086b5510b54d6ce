#pragma once

#include "platform/windows/last_error_kept.h"
#include "runtime/owned.h"

namespace kestrelmoor::platform {

template <class Interface>
struct InterfaceTraits {
    using Value = Interface*;
    static constexpr Value kNone = nullptr;
    static void Release(Value object) noexcept {
        const LastErrorKept kept;
        object->Release();
    }
};

/// One reference to a COM object.
template <class Interface>
using OwnedInterface = Owned<InterfaceTraits<Interface>>;

} // namespace kestrelmoor::platform
