#include "platform/windows/common_controls.h"

#include <windows.h>

namespace kestrelmoor::platform {

void LoadCommonControls() noexcept {
    static const HMODULE module = ::LoadLibraryW(L"comctl32.dll");
    static_cast<void>(module);
}

} // namespace kestrelmoor::platform
