#include "tests/bench/bare/visual_calls.h"

#include <commctrl.h>
#include <uxtheme.h>

namespace kestrelmoor::bench {

namespace {

LRESULT CALLBACK PassOn(int code, WPARAM wide, LPARAM parameter) {
    return ::CallNextHookEx(nullptr, code, wide, parameter);
}

template <class Function>
Function* Entry(HMODULE library, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(library, name)));
}

HMODULE SystemLibrary(const wchar_t* name) {
    wchar_t path[MAX_PATH + 16];
    ::GetSystemDirectoryW(path, MAX_PATH);
    ::lstrcatW(path, name);
    return ::LoadLibraryW(path);
}

bool IsStyled(HMODULE theme) {
    return Entry<decltype(::IsAppThemed)>(theme, "IsAppThemed")() &&
           Entry<decltype(::IsThemeActive)>(theme, "IsThemeActive")() &&
           (Entry<decltype(::GetThemeAppProperties)>(theme, "GetThemeAppProperties")() &
            STAP_ALLOW_NONCLIENT) != 0;
}

void LoadIconInto(HWND window, WPARAM size, int width_metric, int height_metric) {
    const HANDLE icon =
        ::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), IMAGE_ICON,
                     ::GetSystemMetrics(width_metric), ::GetSystemMetrics(height_metric), LR_DEFAULTCOLOR);
    ::SendMessageW(window, WM_SETICON, size, reinterpret_cast<LPARAM>(icon));
}

} // namespace

void CallsAheadOfTheWindow() {
    BOOL shown = FALSE;
    ::SystemParametersInfoW(SPI_GETKEYBOARDCUES, 0, &shown, 0);
    if (const HMODULE controls = ::LoadLibraryW(L"comctl32.dll"))
        Entry<decltype(::InitCommonControls)>(controls, "InitCommonControls")();
    ::SetWindowsHookExW(WH_KEYBOARD, PassOn, nullptr, ::GetCurrentThreadId());
    ::SetWindowsHookExW(WH_MOUSE, PassOn, nullptr, ::GetCurrentThreadId());
}

Look AskForLook(HWND window) {
    const HMODULE theme = SystemLibrary(L"\\uxtheme.dll");
    if (!theme || !IsStyled(theme))
        return {::GetSysColor(COLOR_BTNFACE), ::GetSysColor(COLOR_BTNTEXT), ::GetSysColor(COLOR_WINDOW),
                ::GetSysColor(COLOR_WINDOWTEXT), L'*'};
    const HTHEME open = Entry<decltype(::OpenThemeData)>(theme, "OpenThemeData")(window, L"WINDOW");
    auto* const colour = Entry<decltype(::GetThemeSysColor)>(theme, "GetThemeSysColor");
    const Look look{colour(open, COLOR_BTNFACE), colour(open, COLOR_BTNTEXT), colour(open, COLOR_WINDOW),
                    colour(open, COLOR_WINDOWTEXT), L'\u2022'};
    Entry<decltype(::CloseThemeData)>(theme, "CloseThemeData")(open);
    return look;
}

void CallsBehindTheControls(HWND window) {
    LoadIconInto(window, ICON_SMALL, SM_CXSMICON, SM_CYSMICON);
    LoadIconInto(window, ICON_BIG, SM_CXICON, SM_CYICON);
    ::SendMessageW(window, WM_UPDATEUISTATE, MAKEWPARAM(UIS_SET, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
}

} // namespace kestrelmoor::bench
