#include "platform/windows/component_library.h"

#include "platform/windows/bound_library.h"

#include <windows.h>

#include <ole2.h>

namespace kestrelmoor::platform {

void NeedComponents() {
    static BoundEntry<decltype(::OleInitialize)> entry{Ole32(), "OleInitialize"};
    static bool asked = false;
    const auto initialize = entry.Find();
    if (!asked && initialize)
        initialize(nullptr);
    asked = true;
}

} // namespace kestrelmoor::platform
