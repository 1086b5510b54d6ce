#include "platform/child_windows.h"

#include "platform/windows/door.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

namespace kestrelmoor::platform {

namespace {

struct Enumeration {
    ChildWindowCallback callback;
    std::intptr_t parameter;
};

BOOL CALLBACK ChildDoor(HWND child, LPARAM parameter) noexcept {
    return BehindDoor([&]() -> BOOL {
        const auto& enumeration = *reinterpret_cast<const Enumeration*>(parameter);
        return enumeration.callback(reinterpret_cast<WindowHandle>(child), enumeration.parameter);
    });
}

} // namespace

void EnumChildWindows(WindowHandle hWndParent, ChildWindowCallback callback, std::intptr_t lParam) {
    const Enumeration enumeration{callback, lParam};
    ::EnumChildWindows(reinterpret_cast<HWND>(hWndParent), ChildDoor, reinterpret_cast<LPARAM>(&enumeration));
}

std::int32_t GetClassNameW(WindowHandle hWnd, String& sBuffer) {
    return ::GetClassNameW(reinterpret_cast<HWND>(hWnd), WideBuffer(sBuffer),
                           static_cast<int>(sBuffer.size()));
}

} // namespace kestrelmoor::platform
