#include "platform/windows/common_controls.h"

#include "platform/visual_style.h"

#include <windows.h>

#include <commctrl.h>

namespace kestrelmoor::platform {

namespace {

HMODULE CommonControls() noexcept {
    static const HMODULE module = ::LoadLibraryW(L"comctl32.dll");
    return module;
}

} // namespace

void LoadCommonControls() noexcept {
    CommonControls();
}

// Where the library is missing, windows do without.
void InitCommonControls() {
    const FARPROC address =
        CommonControls() ? ::GetProcAddress(CommonControls(), "InitCommonControls") : nullptr;
    if (address)
        reinterpret_cast<decltype(&::InitCommonControls)>(reinterpret_cast<void*>(address))();
}

} // namespace kestrelmoor::platform
