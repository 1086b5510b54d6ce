#include "watch/expiry_watch.h"

#include "forms/password/frmPass.h"
#include "platform/message_box.h"
#include "runtime/forms/application.h"
#include "shell/messages.h"
#include "shell/program_state.h"
#include "shell/settings.h"
#include "watch/expiry_evaluation.h"
#include "watch/reminder_box.h"

namespace kestrelmoor {

namespace {

constexpr std::int16_t kQuestion = 2;
constexpr std::uint32_t kReminderStyle =
    platform::kBoxYesNo | platform::kBoxInformation | platform::kBoxSystemModal | platform::kBoxSetForeground;

bool UserAgrees(const String& sReport, const String& sTitle) {
    const String prompt = sReport + u"\r\n" + LoadMessage(kQuestion, {});
    return ReminderBox(prompt, kReminderStyle, sTitle) == platform::kBoxYes;
}

/// Leaves only the servers that refuse the user, in memory alone; the local computer never stays.
void NarrowTargets(const Array<PasswordStatus>& aStatus) {
    for (std::int32_t server = 1; server <= gServerCount; ++server)
        if (aStatus[server] != PasswordStatusInvalid)
            SetBit(server - 1, false);
    gSyncLocal = false;
    gTargetsNarrowed = true;
}

} // namespace

void RunExpiryWatch(bool bPrompt) {
    String report;
    String title;
    Array<PasswordStatus> status_of_targets;
    const PasswordStatus aggregate = EvaluateTargets(report, title, status_of_targets);
    if (bPrompt && (aggregate == PasswordStatusOK || !UserAgrees(report, title)))
        return;
    // Its loading, with the first showing, reads the targets: the narrowing comes ahead of that.
    const auto form = Application::Current().Make<frmPass>();
    if (aggregate == PasswordStatusInvalid)
        NarrowTargets(status_of_targets);
    form->Show();
    const bool apart_among_others =
        aggregate != PasswordStatusInvalid && (aggregate & PasswordStatusInvalid) != 0;
    if (apart_among_others && !form->IsUnloaded())
        form->AskForEachOldPass();
}

} // namespace kestrelmoor
