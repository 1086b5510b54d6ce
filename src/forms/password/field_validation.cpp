#include "forms/password/frmPass.h"

#include "account/password_policy.h"
#include "platform/message_box.h"
#include "platform/process.h"
#include "runtime/conversions.h"
#include "shell/messages.h"
#include "shell/program_state.h"

#include <algorithm>

namespace kestrelmoor {

namespace {

constexpr std::int16_t kCharacterNoun = 329;

} // namespace

void frmPass::txtNewPass_Change() {
    UpdateOkButton();
}

void frmPass::txtOldPass_Change() {
    if (txtOldPass.Visible())
        UpdateOkButton();
}

/// There is something to do with a new password, or with an old one alone; what is wrong with them is told
/// at the click.
void frmPass::UpdateOkButton() {
    cmdOK.SetEnabled(!txtNewPass.Text().empty() || (chkSame.Value() != 0 && !txtOldPass.Text().empty()));
}

bool frmPass::PassesChecks(const ControlStates& states) {
    if (txtConfirm.Text() != txtNewPass.Text()) {
        RejectNewPassword(LoadMessage(322, {}), states);
        return false;
    }
    const std::int32_t required = GetRequiredLength();
    if (static_cast<std::int64_t>(txtNewPass.Text().size()) < required) {
        const String noun = gLocalizer->GetPluralText(kCharacterNoun, required);
        RejectNewPassword(LoadMessage(328, {DecimalText(required), noun}), states);
        return false;
    }
    return true;
}

/// Everything stays disabled while the box is up.
void frmPass::RejectNewPassword(const String& sMessage, const ControlStates& states) {
    platform::MessageBoxW(sMessage, platform::kBoxExclamation, platform::kProgramTitle);
    if (IsUnloaded())
        return;
    RestoreEnabled(states);
    txtNewPass.SetText(u"");
    txtConfirm.SetText(u"");
    txtNewPass.SetFocus();
}

std::int32_t frmPass::GetRequiredLength() const {
    std::int32_t required = 0;
    for (int row = 0; row < lstOldPass.ListCount(); ++row) {
        const String name = TargetName(row);
        required = std::max(required, GetMinPwdLength(name.starts_with(u' ') ? String() : name));
    }
    return required;
}

} // namespace kestrelmoor
