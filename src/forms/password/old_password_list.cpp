#include "forms/password/frmPass.h"

#include "platform/collation.h"
#include "shell/messages.h"
#include "shell/program_state.h"
#include "shell/settings.h"

namespace kestrelmoor {

void frmPass::LoadTargets() {
    lstOldPass.Clear();
    for (std::int32_t i = 1; i <= gServerCount; ++i)
        if (GetBit(i - 1))
            AddTarget(gServers[i]);
    // The leading blank sorts the local computer first and is its mark from here on.
    if (gSyncLocal)
        AddTarget(u" " + LoadMessage(321, {}));
}

void frmPass::AddTarget(const String& sName) {
    if (FindTarget(sName) != -1)
        return;
    lstOldPass.AddItem(sName);
    chkSame.SetEnabled(lstOldPass.ListCount() >= 2);
}

int frmPass::FindTarget(const String& sName) const {
    for (int row = 0; row < lstOldPass.ListCount(); ++row)
        if (platform::CompareText(TargetName(row), sName) == 0)
            return row;
    return -1;
}

String frmPass::TargetName(int row) const {
    const String& text = lstOldPass.List(row);
    return text.substr(0, text.find(u'\t'));
}

} // namespace kestrelmoor
