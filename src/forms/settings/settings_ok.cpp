#include "forms/settings/frmSettings.h"

#include "runtime/conversions.h"
#include "runtime/errors.h"
#include "shell/program_state.h"
#include "shell/settings.h"

namespace kestrelmoor {

void frmSettings::cmdOK_Click() {
    gSyncLocal = chkLocalPass.Value() != 0;
    gAutoStart = chkRemind.Value() != 0;
    StoreReminderTime();
    StoreServers();
    const int language = cbLang.ListIndex();
    gLangID = language >= 0 ? static_cast<std::int16_t>(cbLang.ItemData(language)) : std::int16_t{0};
    if (chkPermanent.Value() != 0)
        SaveSettings();
    Unload();
}

void frmSettings::StoreReminderTime() const {
    try {
        gReminderTime = RoundToInteger32(LeadingNumber(txtRemind.Text()) * kSecondsOfDay);
    } catch (const RuntimeError&) {
        // A time beyond all seconds that can be kept changes nothing.
    }
}

/// The order of the list, which is sorted, becomes the order of the servers.
void frmSettings::StoreServers() const {
    const int count = lstServers.ListCount();
    gServerCount = Integer16(count);
    if (count == 0) {
        gServers.Erase();
        gActiveBits.Erase();
        return;
    }
    gServers.Redim(1, count);
    gActiveBits =
        Array<std::uint8_t>(1, std::vector<std::uint8_t>((static_cast<std::size_t>(count) + 7) / 8));
    for (int row = 0; row < count; ++row) {
        gServers[row + 1] = lstServers.List(row);
        SetBit(row, lstServers.Selected(row));
    }
}

} // namespace kestrelmoor
