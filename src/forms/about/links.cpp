#include "forms/about/frmAbout.h"
#include "forms/about/icon_picture.h"
#include "forms/about/mouse_over.h"
#include "platform/mouse_pointer.h"
#include "platform/pictures.h"
#include "platform/shell_execution.h"
#include "shell/mRegistry.h"
#include "shell/program_state.h"

#include <variant>

namespace kestrelmoor {

namespace {

constexpr char16_t kUninstallKey[] = u"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"
                                     u"{5C1E7A90-3B2D-4E68-9F14-A07D2C86B3E1}_is1";
constexpr char16_t kWebAddress[] = u"UrlInfoAbout";
constexpr int kLeftButton = 1;

/// Older systems have no hand: there the pointer of the design stays.
bool HasSystemHand() {
    return gWinVersion >= kWindows2000;
}

SharedPicture HandPicture() {
    return IconToPicture(platform::LoadCursorW(platform::kHandPointer), platform::kIconPicture);
}

} // namespace

void frmAbout::ConnectLink(Label& label, Timer& timer) {
    label.MouseMove = [this, &label, &timer](int, int, float, float) { Link_MouseMove(label, timer); };
    label.MouseDown = [this, &label](int Button, int, float, float) { Link_MouseDown(label, Button); };
    timer.Tick = [this, &label, &timer] { Link_Timer(label, timer); };
}

void frmAbout::ShowWebLink() {
    lblWeb.SetVisible(false);
    OwnedRegistryKey key = OpenRegistryKey(platform::kLocalMachine, kUninstallKey, platform::kKeyRead);
    if (!key)
        return;
    const RegistryValue address = GetRegistryKeyValue(key, kWebAddress);
    if (const auto* const text = std::get_if<String>(&address)) {
        lblWeb.SetCaption(*text);
        lblWeb.SetVisible(true);
        if (HasSystemHand())
            lblWeb.SetMouseIcon(HandPicture());
    }
    CloseRegistryKey(key);
}

void frmAbout::ShowTranslatorLink() {
    lblLocWeb.SetVisible(!lblLocWeb.Caption().empty());
    if (lblLocWeb.Visible() && HasSystemHand())
        lblLocWeb.SetMouseIcon(lblWeb.Visible() ? lblWeb.MouseIcon() : HandPicture());
}

void frmAbout::Link_MouseMove(Label& label, Timer& timer) const {
    if (timer.Enabled())
        return;
    timer.SetEnabled(true);
    label.SetForeColor(mHotLinkColor);
    label.Font().SetUnderline(true);
}

void frmAbout::Link_Timer(Label& label, Timer& timer) const {
    if (IsMouseOver(label, *this))
        return;
    label.SetForeColor(mNormalLinkColor);
    label.Font().SetUnderline(false);
    timer.SetEnabled(false);
}

void frmAbout::Link_MouseDown(const Label& label, int Button) const {
    if (Button == kLeftButton && !label.Caption().empty())
        platform::ShellExecuteW(Window(), u"open", label.Caption(), platform::kShowNormal);
}

} // namespace kestrelmoor
