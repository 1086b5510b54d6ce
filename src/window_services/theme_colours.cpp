#include "window_services/theme_colours.h"

#include "runtime/errors.h"
#include "shell/program_state.h"
#include "window_services/IThemedControl.h"

#include <utility>

namespace kestrelmoor {

namespace {

constexpr Colour kReference = 0x80000000;
constexpr Colour kReferenceIndex = 0x00FFFFFF; ///< of a reference that a theme is asked for
constexpr Colour kSystemIndex = 0x7FF;         ///< of a reference that the system is asked for
constexpr std::uint32_t kFramesStyled = 1;
constexpr char16_t kClassList[] = u"WINDOW";
constexpr int kIconGroup = 1;
constexpr std::uint32_t kSmallIcon = 0;
constexpr std::uint32_t kLargeIcon = 1;

namespace metric {
constexpr int kIconWidth = 11;
constexpr int kIconHeight = 12;
constexpr int kSmallIconWidth = 49;
constexpr int kSmallIconHeight = 50;
} // namespace metric

/// The colours of one walk: one theme serves them all, and goes with the last.
class Walk {
  public:
    explicit Walk(WindowHandle hWnd) : mWindow(hWnd) {}

    Colour Get(Colour nColour, bool bLast = false) {
        return GetThemedColor(nColour, mWindow, mTheme, false, kClassList, bLast, false);
    }

  private:
    WindowHandle mWindow;
    platform::OwnedTheme mTheme;
};

/// The first call is the only guarded one: its failure tells a system without the theme library.
void AskForTheme() {
    gThemed = false;
    gThemeApiPresent = false;
    try {
        gThemed = platform::IsAppThemed();
        gThemeApiPresent = true;
    } catch (const RuntimeError&) {
        return;
    }
    if (gThemed)
        gThemed = platform::IsThemeActive();
    if (gThemed)
        gThemed = (platform::GetThemeAppProperties() & kFramesStyled) != 0;
}

struct ThemedColours {
    Colour button_face;
    Colour button_text;
    Colour window_back;
    Colour window_text;
};

void ApplyTo(Control& control, const ThemedColours& colours, Form& form) {
    switch (control.Kind()) {
    case ControlKind::Frame:
    case ControlKind::CheckBox:
        control.SetBackColor(colours.button_face);
        control.SetForeColor(colours.button_text);
        break;
    case ControlKind::Label:
        control.SetForeColor(colours.button_text);
        break;
    case ControlKind::CommandButton:
        control.SetBackColor(colours.button_face);
        break;
    case ControlKind::ComboBox:
    case ControlKind::ListBox:
        control.SetBackColor(colours.window_back);
        control.SetForeColor(colours.window_text);
        break;
    case ControlKind::TextBox:
        ApplyTextBoxColors(static_cast<TextBox&>(control), form);
        break;
    case ControlKind::UserControl:
        if (auto* const themed = dynamic_cast<IThemedControl*>(&control))
            themed->SetThemedColors(colours.button_face, colours.button_text, colours.window_back,
                                    colours.window_text);
        break;
    case ControlKind::Timer:
    case ControlKind::PictureBox:
    case ControlKind::Line:
    case ControlKind::Shape:
        break;
    }
}

void RefreshIcon(WindowHandle hWnd, std::uint32_t nSize, int nWidthMetric, int nHeightMetric) {
    // Each on its own line: the order of two arguments is the compiler's.
    const int width = platform::GetSystemMetrics(nWidthMetric);
    const int height = platform::GetSystemMetrics(nHeightMetric);
    platform::OwnedIcon icon = platform::LoadIconImage(kIconGroup, width, height);
    // What the window bore until now goes at the end of this line.
    if (icon)
        platform::SetWindowIcon(hWnd, nSize, std::move(icon));
}

} // namespace

void UpdateThemeState() {
    if (gWinVersion < kWindowsXP) {
        gThemed = false;
        gThemeApiPresent = false;
    } else {
        AskForTheme();
    }
    gPasswordChar = gThemed ? u"\u2022" : u"*";
}

void EnsureThemeData(platform::OwnedTheme& hTheme, WindowHandle hWnd, bool bForce, const String& sClassList) {
    if (!gThemeApiPresent)
        return;
    if (hTheme && (bForce || !gThemed))
        hTheme.Reset();
    if (!hTheme && gThemed)
        hTheme = platform::OpenThemeData(hWnd, sClassList);
}

Colour GetThemedColor(Colour nColour, WindowHandle hWnd, platform::OwnedTheme& hTheme, bool bForce,
                      const String& sClassList, bool bClose, bool bUseSystem) {
    if ((nColour & kReference) == 0)
        return nColour;
    EnsureThemeData(hTheme, hWnd, bForce, sClassList);
    const auto index = static_cast<int>(nColour & kReferenceIndex);
    if (!hTheme)
        return bUseSystem ? platform::GetSysColor(index) : nColour;
    const Colour themed = platform::GetThemeSysColor(hTheme, index);
    if (bClose)
        hTheme.Reset();
    return themed;
}

void ApplyThemedColors(Form& form) {
    Walk walk(form.Window());
    ThemedColours colours{};
    colours.button_face = walk.Get(system_colour::kButtonFace);
    colours.button_text = walk.Get(system_colour::kButtonText);
    colours.window_back = walk.Get(system_colour::kWindow);
    colours.window_text = walk.Get(system_colour::kWindowText, true);
    form.SetBackColor(colours.button_face);
    form.SetForeColor(colours.button_text);
    for (const auto& control : form.Controls())
        ApplyTo(*control, colours, form);
}

void ApplyTextBoxColors(TextBox& box, Form& form) {
    Walk walk(form.Window());
    const Colour back = walk.Get(system_colour::kWindow);
    const Colour text = walk.Get(system_colour::kWindowText, true);
    box.SetBackColor(form.ActiveControl() == &box ? MixColors(back, kFocusTint) : back);
    box.SetForeColor(text);
}

Colour MixColors(Colour a, Colour b) {
    a = ResolveColor(a);
    b = ResolveColor(b);
    Colour mixed = 0;
    for (unsigned shift = 0; shift < 24; shift += 8)
        mixed |= ((a >> shift & 0xFF) + (b >> shift & 0xFF)) / 2 << shift;
    return mixed;
}

Colour ResolveColor(Colour nColour) {
    if ((nColour & kReference) == 0)
        return nColour;
    return platform::GetSysColor(static_cast<int>(nColour & kSystemIndex));
}

void RefreshWindowIcons(WindowHandle hWnd) {
    RefreshIcon(hWnd, kSmallIcon, metric::kSmallIconWidth, metric::kSmallIconHeight);
    RefreshIcon(hWnd, kLargeIcon, metric::kIconWidth, metric::kIconHeight);
}

} // namespace kestrelmoor
