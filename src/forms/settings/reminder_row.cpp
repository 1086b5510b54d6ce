#include "forms/settings/frmSettings.h"

#include "platform/text_measure.h"
#include "runtime/conversions.h"
#include "shell/messages.h"
#include "shell/program_state.h"
#include "window_services/theme_colours.h"

namespace kestrelmoor {

namespace {

constexpr std::int16_t kSentence = 411;
constexpr std::int16_t kDayNoun = 412;
constexpr double kGreatestDays = 99;

} // namespace

// "Remind me [14] days before a password expires": the check box is as wide as its caption, and what stands
// behind it moves.
void frmSettings::FitReminderRow() {
    // The mark of a check box is as wide as the box is high.
    const Twips delta =
        chkRemind.Height() + platform::TextWidth(Font(), chkRemind.Caption()) - chkRemind.Width();
    chkRemind.SetWidth(chkRemind.Width() + delta);
    txtRemind.SetLeft(txtRemind.Left() + delta);
    lblRemind.SetLeft(lblRemind.Left() + delta);
    lblRemind.SetWidth(lblRemind.Width() - delta);
}

void frmSettings::txtRemind_Change() {
    const std::int32_t days = RoundToInteger32(LeadingNumber(txtRemind.Text()));
    lblRemind.SetTag(LoadMessage(kSentence, {gLocalizer->GetPluralText(kDayNoun, days)}));
    lblRemind.SetCaption(lblRemind.Tag());
    cmdOK.SetEnabled(true);
}

void frmSettings::txtRemind_KeyPress(int& KeyAscii) {
    const bool digit = KeyAscii >= u'0' && KeyAscii <= u'9';
    if (!digit && KeyAscii != key::kBack)
        KeyAscii = 0;
}

void frmSettings::txtRemind_Validate(bool& Cancel) const {
    Cancel = LeadingNumber(txtRemind.Text()) > kGreatestDays;
}

void frmSettings::txtRemind_FocusChange() {
    ApplyTextBoxColors(txtRemind, *this);
}

} // namespace kestrelmoor
