#include "forms/settings/frmSettings.h"

#include "platform/collation.h"
#include "shell/program_state.h"
#include "shell/settings.h"
#include "window_services/item_rect.h"

namespace kestrelmoor {

namespace {

/// Stands for the entry that is being typed.
constexpr char16_t kPlaceholder[] = u"...";

constexpr Twips kCheckMarkWidth = 225; ///< of a row, left uncovered by the entry

} // namespace

void frmSettings::FillServers() {
    for (std::int32_t i = 1; i <= gServerCount; ++i) {
        lstServers.AddItem(gServers[i]);
        if (GetBit(i - 1))
            lstServers.SetSelected(lstServers.NewIndex(), true);
    }
    lstServers.SetListIndex(-1);
}

void frmSettings::cmdAddServer_Click() {
    lstServers.AddItem(kPlaceholder);
    const int row = lstServers.NewIndex();
    lstServers.SetSelected(row, true);
    lstServers.SetListIndex(row);
    Twips left = 0;
    Twips top = 0;
    Twips width = 0;
    Twips height = 0;
    const WindowHandle frame = fraNetPwd.Peer() != nullptr ? fraNetPwd.Peer()->Window() : 0;
    if (!GetItemRect(lstServers, *this, row, left, top, width, height, frame)) {
        lstServers.RemoveItem(row);
        return;
    }
    ucAddComp.Move(left + kCheckMarkWidth, top, width - kCheckMarkWidth, height);
    ucAddComp.SetVisible(true);
    ucAddComp.SetFocus();
}

/// Closes the entry: its row makes way for the name that was typed, or for nothing.
void frmSettings::ucAddComp_LostFocus() {
    const String name = ucAddComp.Computer();
    // In this order, so that clearing the hidden entry is no change.
    ucAddComp.SetVisible(false);
    ucAddComp.SetComputer(u"");
    const int placeholder = FindPlaceholder();
    if (placeholder < 0)
        return;
    const int known = name.empty() ? -1 : FindServer(name, placeholder);
    if (known >= 0)
        lstServers.SetListIndex(known);
    lstServers.RemoveItem(placeholder);
    if (name.empty() || known >= 0)
        return;
    lstServers.AddItem(name);
    const int row = lstServers.NewIndex();
    lstServers.SetListIndex(row);
    lstServers.SetSelected(row, true);
    cmdOK.SetEnabled(true);
}

int frmSettings::FindPlaceholder() const {
    for (int row = 0; row < lstServers.ListCount(); ++row)
        if (lstServers.List(row) == kPlaceholder)
            return row;
    return -1;
}

int frmSettings::FindServer(const String& sName, int placeholder) const {
    for (int row = 0; row < lstServers.ListCount(); ++row)
        if (row != placeholder && platform::CompareText(lstServers.List(row), sName) == 0)
            return row;
    return -1;
}

void frmSettings::cmdRemServer_Click() {
    if (lstServers.ListIndex() >= 0) {
        lstServers.RemoveItem(lstServers.ListIndex());
        cmdOK.SetEnabled(true);
    }
    lstServers_Click();
}

void frmSettings::lstServers_Click() {
    cmdRemServer.SetEnabled(lstServers.ListIndex() >= 0);
}

void frmSettings::lstServers_GotFocus() {
    if (lstServers.ListIndex() < 0)
        lstServers.SetListIndex(0);
}

void frmSettings::lstServers_ItemCheck(int row) {
    if (lstServers.List(row) != kPlaceholder)
        cmdOK.SetEnabled(true);
}

} // namespace kestrelmoor
