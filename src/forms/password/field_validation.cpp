#include "forms/password/frmPass.h"

#include "account/password_policy.h"
#include "platform/message_box.h"
#include "platform/process.h"
#include "runtime/conversions.h"
#include "shell/messages.h"
#include "shell/program_state.h"
#include "window_services/theme_colours.h"

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

void frmPass::txtNewPass_FocusChange() {
    ApplyTextBoxColors(txtNewPass, *this);
}

void frmPass::txtConfirm_FocusChange() {
    ApplyTextBoxColors(txtConfirm, *this);
}

/// There is something to do with a new password, or with an old one alone; what is wrong with them is told
/// at the click.
void frmPass::UpdateOkButton() {
    if (!txtNewPass.Text().empty())
        cmdOK.SetEnabled(true);
    else if (chkSame.Value() != 0)
        cmdOK.SetEnabled(!txtOldPass.Text().empty());
    else if (txtOldPass.Visible())
        cmdOK.SetEnabled(static_cast<std::int32_t>(txtOldPass.Text().size()) + mOtherPassLength > 0);
    else
        cmdOK.SetEnabled(StoredPassLength() != 0);
}

bool frmPass::PassesChecks(const ControlStates& states) {
    if (txtConfirm.Text() != txtNewPass.Text()) {
        RejectNewPassword(LoadMessage(322, {}), states);
        return false;
    }
    const std::int32_t required = GetRequiredLength();
    if (IsUnloaded())
        return false;
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
    for (int row = 0; row < lstOldPass.ListCount() && !IsUnloaded(); ++row) {
        const String name = TargetName(row);
        required = std::max(required, GetMinPwdLength(name.starts_with(u' ') ? String() : name));
    }
    return required;
}

} // namespace kestrelmoor
