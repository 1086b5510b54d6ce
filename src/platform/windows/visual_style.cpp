#include "platform/visual_style.h"

#include "platform/windows/bound_library.h"
#include "platform/windows/last_error_kept.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

#include <uxtheme.h>

namespace kestrelmoor::platform {

namespace {

HWND WindowOf(WindowHandle window) {
    return reinterpret_cast<HWND>(window);
}

HTHEME ThemeOf(ThemeTraits::Value theme) {
    return reinterpret_cast<HTHEME>(theme);
}

} // namespace

bool IsAppThemed() {
    static BoundEntry<decltype(::IsAppThemed)> entry{UxTheme(), "IsAppThemed"};
    return entry.Get()() != FALSE;
}

bool IsThemeActive() {
    static BoundEntry<decltype(::IsThemeActive)> entry{UxTheme(), "IsThemeActive"};
    return entry.Get()() != FALSE;
}

std::uint32_t GetThemeAppProperties() {
    static BoundEntry<decltype(::GetThemeAppProperties)> entry{UxTheme(), "GetThemeAppProperties"};
    return entry.Get()();
}

void SetThemeAppProperties(std::uint32_t nFlags) {
    static BoundEntry<decltype(::SetThemeAppProperties)> entry{UxTheme(), "SetThemeAppProperties"};
    entry.Get()(nFlags);
}

void ThemeTraits::Release(Value theme) noexcept {
    static BoundEntry<decltype(::CloseThemeData)> entry{UxTheme(), "CloseThemeData"};
    const LastErrorKept kept;
    if (auto* const CloseThemeData = entry.Find())
        CloseThemeData(ThemeOf(theme));
}

OwnedTheme OpenThemeData(WindowHandle hWnd, const String& sClassList) {
    static BoundEntry<decltype(::OpenThemeData)> entry{UxTheme(), "OpenThemeData"};
    return OwnedTheme(reinterpret_cast<ThemeTraits::Value>(entry.Get()(WindowOf(hWnd), Wide(sClassList))));
}

Colour GetThemeSysColor(const OwnedTheme& theme, int nIndex) {
    static BoundEntry<decltype(::GetThemeSysColor)> entry{UxTheme(), "GetThemeSysColor"};
    return entry.Get()(ThemeOf(theme.Get()), nIndex);
}

Colour GetSysColor(int nIndex) {
    return ::GetSysColor(nIndex);
}

int GetSystemMetrics(int nIndex) {
    return ::GetSystemMetrics(nIndex);
}

void IconTraits::Release(Value icon) noexcept {
    const LastErrorKept kept;
    ::DestroyIcon(reinterpret_cast<HICON>(icon));
}

OwnedIcon LoadIconImage(int nNumber, int nWidth, int nHeight) {
    const auto* const name = MAKEINTRESOURCEW(nNumber);
    return OwnedIcon(reinterpret_cast<IconTraits::Value>(
        ::LoadImageW(::GetModuleHandleW(nullptr), name, IMAGE_ICON, nWidth, nHeight, LR_DEFAULTCOLOR)));
}

// A window that is not there takes no icon: it is the caller's to release.
OwnedIcon SetWindowIcon(WindowHandle hWnd, std::uint32_t nSize, OwnedIcon icon) {
    if (!::IsWindow(WindowOf(hWnd)))
        return icon;
    return OwnedIcon(static_cast<IconTraits::Value>(
        ::SendMessageW(WindowOf(hWnd), WM_SETICON, nSize, static_cast<LPARAM>(icon.Detach()))));
}

} // namespace kestrelmoor::platform
