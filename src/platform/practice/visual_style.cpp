#include "platform/visual_style.h"

#include "platform/practice/windows.h"
#include "platform/practice/world/world.h"
#include "runtime/errors.h"

#include <algorithm>

namespace kestrelmoor::platform {

namespace {

using practice::Appearance;
using practice::HandleKind;
using practice::TheWorld;

Appearance& Bound(const char* entry) {
    Appearance& appearance = TheWorld().machine.appearance;
    if (!appearance.library_present)
        RaiseError(error_number::kFileNotFound);
    if (appearance.missing_entries.contains(entry))
        RaiseError(error_number::kEntryNotFound);
    return appearance;
}

bool HasStyle(const Appearance& appearance) {
    return appearance.app_themed && appearance.theme_active;
}

template <class Value>
Value Told(const std::map<int, Value>& values, int index, Value standard) {
    const auto found = values.find(index);
    return found == values.end() ? standard : found->second;
}

Colour SystemColour(int index) {
    return Told(TheWorld().machine.appearance.system_colours, index, Colour{0});
}

} // namespace

bool IsAppThemed() {
    const Appearance& appearance = Bound("IsAppThemed");
    const auto fault = TheWorld().calls.Enter("IsAppThemed");
    return fault ? *fault != 0 : appearance.app_themed;
}

bool IsThemeActive() {
    const Appearance& appearance = Bound("IsThemeActive");
    const auto fault = TheWorld().calls.Enter("IsThemeActive");
    return fault ? *fault != 0 : appearance.theme_active;
}

std::uint32_t GetThemeAppProperties() {
    const Appearance& appearance = Bound("GetThemeAppProperties");
    const auto fault = TheWorld().calls.Enter("GetThemeAppProperties");
    return fault ? *fault : appearance.app_properties;
}

void SetThemeAppProperties(std::uint32_t nFlags) {
    Appearance& appearance = Bound("SetThemeAppProperties");
    if (!TheWorld().calls.Enter("SetThemeAppProperties", {nFlags}))
        appearance.app_properties = nFlags;
}

void ThemeTraits::Release(Value theme) noexcept {
    TheWorld().calls.Enter("CloseThemeData", {theme});
    TheWorld().handles.Close(HandleKind::Theme, theme);
}

OwnedTheme OpenThemeData(WindowHandle hWnd, const String& sClassList) {
    const Appearance& appearance = Bound("OpenThemeData");
    if (TheWorld().calls.Enter("OpenThemeData", {hWnd, sClassList}) || !HasStyle(appearance))
        return {};
    return OwnedTheme(TheWorld().handles.Open(HandleKind::Theme, sClassList));
}

Colour GetThemeSysColor(const OwnedTheme& theme, int nIndex) {
    const Appearance& appearance = Bound("GetThemeSysColor");
    if (const auto fault = TheWorld().calls.Enter("GetThemeSysColor", {theme.Get(), nIndex}))
        return *fault;
    return theme ? Told(appearance.theme_colours, nIndex, SystemColour(nIndex)) : SystemColour(nIndex);
}

Colour GetSysColor(int nIndex) {
    const auto fault = TheWorld().calls.Enter("GetSysColor", {nIndex});
    return fault ? *fault : SystemColour(nIndex);
}

int GetSystemMetrics(int nIndex) {
    const auto fault = TheWorld().calls.Enter("GetSystemMetrics", {nIndex});
    return fault ? static_cast<int>(*fault) : Told(TheWorld().machine.appearance.metrics, nIndex, 0);
}

void IconTraits::Release(Value icon) noexcept {
    TheWorld().calls.Enter("DestroyIcon", {icon});
    TheWorld().handles.Close(HandleKind::Icon, icon);
}

OwnedIcon LoadIconImage(int nNumber, int nWidth, int nHeight) {
    if (TheWorld().calls.Enter("LoadImageW", {nNumber, nWidth, nHeight}) ||
        std::ranges::count(TheWorld().machine.appearance.icons, nNumber) == 0)
        return {};
    return OwnedIcon(
        TheWorld().handles.Open(HandleKind::Icon, practice::IconImage{nNumber, nWidth, nHeight}));
}

OwnedIcon SetWindowIcon(WindowHandle hWnd, std::uint32_t nSize, OwnedIcon icon) {
    TheWorld().calls.Enter("SetWindowIcon", {hWnd, nSize, icon.Get()});
    return practice::Windows::Current().ExchangeIcon(hWnd, nSize, std::move(icon));
}

void InitCommonControls() {
    TheWorld().calls.Enter("InitCommonControls");
}

} // namespace kestrelmoor::platform
