#pragma once

#include "runtime/forms/geometry.h"
#include "runtime/forms/peer.h"
#include "runtime/owned.h"
#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor::platform {

/// The visual style. The theme library is bound by name at the first call; a system without it raises 53 or
/// 453, in each call alike.

bool IsAppThemed();
bool IsThemeActive();

/// STAP_ bits; bit 0: the frames of windows are drawn with the style.
std::uint32_t GetThemeAppProperties();
void SetThemeAppProperties(std::uint32_t nFlags);

struct ThemeTraits {
    using Value = std::uintptr_t;
    static constexpr Value kNone = 0;
    static void Release(Value theme) noexcept; ///< CloseThemeData
};
using OwnedTheme = Owned<ThemeTraits>;

/// No theme when there is none for the class list.
OwnedTheme OpenThemeData(WindowHandle hWnd, const String& sClassList);

/// The style's plain colour for a system colour's index.
Colour GetThemeSysColor(const OwnedTheme& theme, int nIndex);

/// The present plain colour of a system colour.
Colour GetSysColor(int nIndex);

/// SM_ figures, in pixels.
int GetSystemMetrics(int nIndex);

/// An icon; the one that a window bears is the window's own.
struct IconTraits {
    using Value = std::uintptr_t;
    static constexpr Value kNone = 0;
    static void Release(Value icon) noexcept; ///< DestroyIcon
};
using OwnedIcon = Owned<IconTraits>;

/// Image `nNumber` of the program's own resources in that size; none when it can't be loaded.
OwnedIcon LoadIconImage(int nNumber, int nWidth, int nHeight);

/// WM_SETICON: gives the window its small (0) or large (1) icon; what it had before comes back.
OwnedIcon SetWindowIcon(WindowHandle hWnd, std::uint32_t nSize, OwnedIcon icon);

/// Common controls 6 need this once before the first window.
void InitCommonControls();

} // namespace kestrelmoor::platform
