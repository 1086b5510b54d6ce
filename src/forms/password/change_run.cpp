#include "forms/password/frmPass.h"

#include "account/mAD.h"
#include "account/password_change.h"
#include "platform/collation.h"
#include "runtime/forms/application.h"
#include "shell/messages.h"
#include "shell/program_state.h"
#include "watch/expiry_watch.h"

#include <algorithm>
#include <iterator>

namespace kestrelmoor {

namespace {

constexpr char16_t kParagraphBreak[] = u"\r\n\r\n";

bool IsLocalComputer(const String& sTarget) {
    return sTarget.starts_with(u' ');
}

} // namespace

void frmPass::cmdOK_Click() {
    if (!cmdOK.Enabled())
        return;
    SetMousePointer(mouse_pointer::kHourglass);
    ControlStates states = DisableControls();
    Application::Current().DoEvents();
    if (IsUnloaded())
        return;
    if (mRunDone) {
        GoBack();
        return;
    }
    if (!PassesChecks(states))
        return;
    mRunDone = true;
    RunChange(states);
}

frmPass::ControlStates frmPass::DisableControls() {
    ControlStates states;
    for (const auto& control : Controls()) {
        if (control->Kind() == ControlKind::Label || control.get() == &txtStatus)
            continue;
        states.emplace(control->Name(), control->Enabled());
        control->SetEnabled(false);
    }
    return states;
}

void frmPass::RestoreEnabled(const ControlStates& states) {
    for (const auto& control : Controls()) {
        const auto state = states.find(control->Name());
        if (state != states.end())
            control->SetEnabled(state->second);
    }
    SetMousePointer(mouse_pointer::kDefault);
}

/// The way back is a new window: nothing that was typed survives it.
void frmPass::GoBack() {
    lblWait.SetVisible(true);
    txtStatus.SetText(u"");
    txtStatus.SetEnabled(false);
    Application::Current().DoEvents();
    if (IsUnloaded())
        return;
    Unload();
    if (gForceWindow)
        Application::Current().Make<frmPass>()->Show();
    else
        RunExpiryWatch(false);
}

void frmPass::RunChange(ControlStates& states) {
    ShowRunLayout(states);
    const String single_old_pass = chkSame.Value() != 0 ? txtOldPass.Text() : String();
    const int count = lstOldPass.ListCount();
    bool failed = false;
    for (int row = 0; row < count; ++row) {
        Application::Current().DoEvents();
        if (IsUnloaded())
            return;
        failed = !ChangeTarget(row, single_old_pass) || failed;
        if (IsUnloaded())
            return;
    }
    ShowOutcome(states, failed);
}

/// The third layout: the status box over the entries, the two buttons below it.
void frmPass::ShowRunLayout(ControlStates& states) {
    for (const auto& control : Controls()) {
        Control* const kept[] = {&txtUser, &lblUser, &txtStatus, &lblWait, &cmdCancel, &cmdOK};
        if (std::find(std::begin(kept), std::end(kept), control.get()) == std::end(kept))
            control->SetVisible(false);
    }
    const Twips old_top = cmdCancel.Top();
    const Twips new_top =
        txtStatus.Top() + txtStatus.Height() + old_top - txtConfirm.Top() - txtConfirm.Height();
    cmdCancel.SetTop(new_top);
    cmdCancel.SetCaption(cmdOK.Caption());
    cmdCancel.SetDefault(true);
    cmdOK.SetTop(new_top);
    cmdOK.SetCaption(LoadMessage(316, {}));
    states[cmdOK.Name()] = false;
    txtStatus.SetVisible(true);
    lblWait.SetTop(lblWait.Top() + new_top - old_top);
    lblWait.SetVisible(true);
    lblWait.SetCaption(LoadMessage(325, {}));
    SetHeight(Height() + new_top - old_top);
    SetCaption(LoadMessage(323, {}));
}

/// One target and its paragraph. False: the password was not changed there; equal passwords are no failure.
bool frmPass::ChangeTarget(int row, const String& sSingleOldPass) {
    const String target = TargetName(row);
    const String old_pass = chkSame.Value() != 0 ? sSingleOldPass : mOldPasswords.Of(target);
    const String new_pass = txtNewPass.Text();
    if (old_pass == new_pass) {
        AppendStatus(LoadMessage(327, {target, LoadMessage(330, {})}));
        return true;
    }
    String sError;
    const bool changed = ChangeOn(target, old_pass, new_pass, sError) == 0;
    if (IsUnloaded())
        return changed;
    AppendStatus(changed ? LoadMessage(326, {target}) : LoadMessage(327, {target, sError}));
    return changed;
}

/// The directory first, the network API where the directory has no such object. Success on the logged-on
/// account itself leads to a log-off.
std::int32_t frmPass::ChangeOn(const String& sTarget, const String& sOldPass, const String& sNewPass,
                               String& sError) {
    const bool local = IsLocalComputer(sTarget);
    const String server = local ? String() : sTarget;
    std::int32_t result = ADChangePassword(sOldPass, sNewPass, server, sError);
    // A directory that answers slowly may have handled events meanwhile: no call follows a closed window.
    if (result == kNoDirectoryObject && !IsUnloaded())
        result = ChangePassword(sOldPass, sNewPass, server, sError);
    if (result == 0 && (local || platform::CompareText(sTarget, gDomainName) == 0)) {
        mLogOffOnExit = true;
        if (IsUnloaded())
            LogOff();
    }
    return result;
}

void frmPass::AppendStatus(const String& sLine) {
    txtStatus.SetSelStart(static_cast<int>(txtStatus.Text().size()));
    txtStatus.SetSelText(txtStatus.SelStart() != 0 ? kParagraphBreak + sLine : sLine);
    txtStatus.SetSelStart(static_cast<int>(txtStatus.Text().size()));
}

void frmPass::ShowOutcome(const ControlStates& states, bool bFailed) {
    RestoreEnabled(states);
    cmdCancel.SetEnabled(true);
    if (bFailed && !mLogOffOnExit) {
        cmdOK.SetEnabled(true);
        cmdOK.SetFocus();
    }
    if (mLogOffOnExit) {
        cmdCancel.SetCaption(LoadMessage(317, {}));
        txtStatus.SetSelStart(static_cast<int>(txtStatus.Text().size()));
        txtStatus.SetSelText(kParagraphBreak + LoadMessage(318, {}));
        txtStatus.SetSelStart(static_cast<int>(txtStatus.Text().size()));
    }
    lblWait.SetVisible(false);
    SetCaption(LoadMessage(324, {}));
}

} // namespace kestrelmoor
