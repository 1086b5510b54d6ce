#include "commands.h"
#include "process_memory.h"

#include <algorithm>
#include <stdexcept>

namespace kestrelmoor::driver {

namespace {

enum class Kind { kPlain, kLabel, kPushButton, kMark, kFrame, kDropDown };

struct Control {
    HWND handle;
    Kind kind;
    RECT place; ///< in the parent's client area
    DWORD style;
};

Kind ButtonKind(DWORD style) {
    switch (style & BS_TYPEMASK) {
    case BS_PUSHBUTTON:
    case BS_DEFPUSHBUTTON:
        return Kind::kPushButton;
    case BS_GROUPBOX:
        return Kind::kFrame;
    case BS_OWNERDRAW:
        return Kind::kPlain;
    default:
        return (style & BS_PUSHLIKE) != 0 ? Kind::kPushButton : Kind::kMark;
    }
}

// Edits and lists scroll, so their text may be wider than they are.
Kind KindOf(HWND control, DWORD style) {
    const std::wstring name = ClassOf(control);
    if (lstrcmpiW(name.c_str(), L"Static") == 0)
        return (style & SS_TYPEMASK) <= SS_RIGHT || (style & SS_TYPEMASK) == SS_LEFTNOWORDWRAP ? Kind::kLabel
                                                                                               : Kind::kPlain;
    if (lstrcmpiW(name.c_str(), L"Button") == 0)
        return ButtonKind(style);
    if (lstrcmpiW(name.c_str(), L"ComboBox") == 0)
        return Kind::kDropDown;
    return Kind::kPlain;
}

std::vector<Control> VisibleChildren(HWND parent) {
    std::vector<Control> controls;
    for (HWND child = nullptr; (child = FindWindowExW(parent, child, nullptr, nullptr)) != nullptr;) {
        if (!IsWindowVisible(child))
            continue;
        const DWORD style = static_cast<DWORD>(GetWindowLongW(child, GWL_STYLE));
        Control control{child, KindOf(child, style), {}, style};
        GetWindowRect(child, &control.place);
        MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&control.place), 2);
        controls.push_back(control);
    }
    return controls;
}

/// A device context of the screen in which a font is selected that equals the one a control writes with.
/// Fonts belong to their process, so that the description is fetched from there.
class Ruler {
  public:
    Ruler(const OpenedProcess& process, HWND control) : mScreen(GetDC(nullptr)) {
        // Not every platform lets this message pass from program to program.
        const DWORD font = process.Call(L"user32.dll", "SendMessageW",
                                        {static_cast<DWORD>(Number(control)), WM_GETFONT, 0, 0});
        LOGFONTW description{};
        const std::span<unsigned char> block(reinterpret_cast<unsigned char*>(&description),
                                             sizeof description);
        if (font != 0 &&
            process.CallWithBlock(L"gdi32.dll", "GetObjectW", {font, sizeof description}, block) != 0)
            mFont = CreateFontIndirectW(&description);
        mBefore = SelectObject(mScreen, mFont != nullptr ? mFont : GetStockObject(SYSTEM_FONT));
    }
    ~Ruler() {
        SelectObject(mScreen, mBefore);
        if (mFont != nullptr)
            DeleteObject(mFont);
        ReleaseDC(nullptr, mScreen);
    }
    Ruler(const Ruler&) = delete;
    Ruler& operator=(const Ruler&) = delete;

    SIZE Measure(const std::wstring& text, UINT format, LONG width) const {
        RECT area{0, 0, width, 0};
        DrawTextW(mScreen, text.c_str(), static_cast<int>(text.size()), &area, format | DT_CALCRECT);
        return {area.right, area.bottom};
    }
    /// A length given for 96 dots per inch.
    int Scaled(int pixels) const { return MulDiv(pixels, GetDeviceCaps(mScreen, LOGPIXELSX), 96); }

  private:
    HDC mScreen;
    HFONT mFont = nullptr;
    HGDIOBJ mBefore;
};

UINT FormatOf(const Control& control) {
    if (control.kind == Kind::kLabel) {
        const UINT mnemonic = (control.style & SS_NOPREFIX) != 0 ? DT_NOPREFIX : 0u;
        const bool wraps = (control.style & SS_TYPEMASK) != SS_LEFTNOWORDWRAP;
        return mnemonic | DT_EXPANDTABS | (wraps ? DT_WORDBREAK : 0u);
    }
    if (control.kind == Kind::kDropDown)
        return DT_SINGLELINE | DT_NOPREFIX;
    return (control.style & BS_MULTILINE) != 0 ? DT_WORDBREAK : DT_SINGLELINE;
}

/// What the control itself needs beside its text, in pixels at 96 dots per inch: a button's edges, the box of
/// a check box and its gap, the corners of a frame, the arrow of a drop-down list.
int RoomBesideText(const Control& control) {
    switch (control.kind) {
    case Kind::kPushButton:
        return 6;
    case Kind::kMark:
        return 17;
    case Kind::kFrame:
        return 18;
    case Kind::kDropDown:
        return 23;
    default:
        return 0;
    }
}

void CheckText(const OpenedProcess& process, const Control& control, Answer& faults) {
    const std::wstring text = TextOf(control.handle);
    if (control.kind == Kind::kPlain || text.empty())
        return;
    const Ruler ruler(process, control.handle);
    RECT client{};
    GetClientRect(control.handle, &client);
    const LONG room = client.right - ruler.Scaled(RoomBesideText(control));
    const UINT format = FormatOf(control);
    const SIZE needed = ruler.Measure(text, format, room);
    const auto report = [&](const char* kind, LONG needs, LONG has) {
        faults.push_back(Record()
                             .Add(std::string(kind))
                             .Add(Number(control.handle))
                             .Add(0)
                             .Add(L"\"" + text + L"\" needs " + std::to_wstring(needs) + L" pixels and has " +
                                  std::to_wstring(has)));
    };
    if (needed.cx > room)
        report("wide", needed.cx, room);
    // A frame's and a drop-down list's height is not that of its text.
    else if (control.kind != Kind::kFrame && control.kind != Kind::kDropDown && needed.cy > client.bottom)
        report("high", needed.cy, client.bottom);
}

bool Contains(const RECT& outer, const RECT& inner) {
    RECT both{};
    UnionRect(&both, &outer, &inner);
    return EqualRect(&both, &outer) != 0;
}

bool Overlap(const Control& one, const Control& other) {
    RECT common{};
    if (!IntersectRect(&common, &one.place, &other.place))
        return false;
    const bool framed = (one.kind == Kind::kFrame && Contains(one.place, other.place)) ||
                        (other.kind == Kind::kFrame && Contains(other.place, one.place));
    return !framed;
}

void CheckPlaces(HWND parent, const std::vector<Control>& controls, Answer& faults) {
    RECT area{};
    GetClientRect(parent, &area);
    for (auto one = controls.begin(); one != controls.end(); ++one) {
        if (!Contains(area, one->place))
            faults.push_back(Record()
                                 .Add(std::string("outside"))
                                 .Add(Number(one->handle))
                                 .Add(Number(parent))
                                 .Add(L"\"" + TextOf(one->handle) + L"\" reaches beyond its parent"));
        for (auto other = one + 1; other != controls.end(); ++other)
            if (Overlap(*one, *other))
                faults.push_back(Record()
                                     .Add(std::string("overlap"))
                                     .Add(Number(one->handle))
                                     .Add(Number(other->handle))
                                     .Add(L"\"" + TextOf(one->handle) + L"\" and \"" + TextOf(other->handle) +
                                          L"\" overlap"));
    }
}

// The parts of a drop-down list are its own affair.
void CheckArea(const OpenedProcess& process, HWND parent, Answer& faults) {
    const std::vector<Control> controls = VisibleChildren(parent);
    CheckPlaces(parent, controls, faults);
    for (const Control& control : controls) {
        CheckText(process, control, faults);
        if (control.kind != Kind::kDropDown)
            CheckArea(process, control.handle, faults);
    }
}

} // namespace

Answer FindLayoutFaults(const Arguments& arguments) {
    HWND window = WindowArgument(arguments, 0);
    Answer faults;
    CheckArea(OpenedProcess(window), window, faults);
    return faults;
}

} // namespace kestrelmoor::driver
