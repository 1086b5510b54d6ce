#include "platform/windows/check_mark.h"

#include "platform/visual_style.h"
#include "platform/windows/bound_library.h"

#include <uxtheme.h>
#include <vssym32.h>

namespace kestrelmoor::platform {

namespace {

int StyleState(CheckMark mark) {
    if (mark.checked)
        return mark.enabled ? CBS_CHECKEDNORMAL : CBS_CHECKEDDISABLED;
    return mark.enabled ? CBS_UNCHECKEDNORMAL : CBS_UNCHECKEDDISABLED;
}

// A system without visual styles lacks the library.
OwnedTheme StyleOf(HWND window) {
    static BoundEntry<decltype(::OpenThemeData)> open{UxTheme(), "OpenThemeData"};
    auto* const OpenThemeData = open.Find();
    return OwnedTheme(OpenThemeData ? reinterpret_cast<ThemeTraits::Value>(OpenThemeData(window, L"BUTTON"))
                                    : ThemeTraits::kNone);
}

bool DrawByStyle(HWND window, HDC context, const RECT& place, CheckMark mark) {
    static BoundEntry<decltype(::DrawThemeBackground)> draw{UxTheme(), "DrawThemeBackground"};
    const OwnedTheme style = StyleOf(window);
    auto* const DrawThemeBackground = draw.Find();
    return style && DrawThemeBackground &&
           SUCCEEDED(DrawThemeBackground(reinterpret_cast<HTHEME>(style.Get()), context, BP_CHECKBOX,
                                         StyleState(mark), &place, nullptr));
}

} // namespace

void DrawCheckMark(HWND window, HDC context, const RECT& place, CheckMark mark) {
    if (DrawByStyle(window, context, place, mark))
        return;
    RECT box = place;
    ::DrawFrameControl(context, &box, DFC_BUTTON,
                       DFCS_BUTTONCHECK | (mark.checked ? DFCS_CHECKED : 0U) |
                           (mark.enabled ? 0U : DFCS_INACTIVE));
}

} // namespace kestrelmoor::platform
