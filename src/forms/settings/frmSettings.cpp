#include "forms/settings/frmSettings.h"

#include "forms/about/open_help.h"
#include "forms/about/show_about.h"
#include "forms/settings/frmSettings_design.h"
#include "localization/text_application.h"
#include "platform/process.h"
#include "runtime/conversions.h"
#include "shell/program_state.h"
#include "window_services/keyboard_cues.h"
#include "window_services/theme_colours.h"

namespace kestrelmoor {

frmSettings::frmSettings()
    : Form(kfrmSettingsDesign), cmdHelp(Get<CommandButton>(u"cmdHelp")), cbLang(Get<ComboBox>(u"cbLang")),
      cmdOK(Get<CommandButton>(u"cmdOK")), cmdCancel(Get<CommandButton>(u"cmdCancel")),
      cmdAbout(Get<CommandButton>(u"cmdAbout")), chkLocalPass(Get<CheckBox>(u"chkLocalPass")),
      cmdAddServer(Get<CommandButton>(u"cmdAddServer")), cmdRemServer(Get<CommandButton>(u"cmdRemServer")),
      chkRemind(Get<CheckBox>(u"chkRemind")), txtRemind(Get<TextBox>(u"txtRemind")),
      chkPermanent(Get<CheckBox>(u"chkPermanent")), fraNetPwd(Get<Frame>(u"fraNetPwd")),
      lstServers(Get<ListBox>(u"lstServers")), ucAddComp(Get<ctlAddComputer>(u"ucAddComp")),
      lblRemind(Get<Label>(u"lblRemind")) {
    ConnectHandlers();
    ConnectEntries();
}

void frmSettings::ConnectHandlers() {
    cmdHelp.Click = [this] { cmdHelp_Click(); };
    cmdAbout.Click = [] { cmdAbout_Click(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    cmdAddServer.Click = [this] { cmdAddServer_Click(); };
    cmdRemServer.Click = [this] { cmdRemServer_Click(); };
}

void frmSettings::ConnectEntries() {
    chkLocalPass.Click = chkRemind.Click = chkPermanent.Click = ucAddComp.Changed = [this] { EnableOk(); };
    txtRemind.Change = [this] { txtRemind_Change(); };
    txtRemind.KeyPress = [](int& KeyAscii) { txtRemind_KeyPress(KeyAscii); };
    txtRemind.Validate = [this](bool& Cancel) { txtRemind_Validate(Cancel); };
    txtRemind.GotFocus = txtRemind.LostFocus = [this] { txtRemind_FocusChange(); };
    lstServers.Click = [this] { lstServers_Click(); };
    lstServers.GotFocus = [this] { lstServers_GotFocus(); };
    lstServers.ItemCheck = [this](int row) { lstServers_ItemCheck(row); };
    ucAddComp.LostFocus = [this] { ucAddComp_LostFocus(); };
    cbLang.Click = [this] { cbLang_Click(); };
}

void frmSettings::Form_Load() {
    UpdateUI();
    mCueShown = !gKeyboardCues;
    ApplyTexts();
    TurnCues(*this, mCueShown);
    FillLanguages();
    FitReminderRow();
    ShowState();
    FillServers();
    if (gTargetsNarrowed)
        chkPermanent.SetEnabled(false); // what was narrowed must not be stored
    else if (gForceWindow)
        chkPermanent.SetValue(1);
    // The events of all this have enabled it.
    cmdOK.SetEnabled(false);
    cmdHelp.SetEnabled(!gHelpFile.empty());
}

void frmSettings::ShowState() {
    chkRemind.SetValue(gAutoStart ? 1 : 0);
    txtRemind.SetText(DecimalText(gReminderTime / kSecondsOfDay));
    chkLocalPass.SetValue(gSyncLocal ? 1 : 0);
    chkLocalPass.SetEnabled(!gDomainMember);
}

void frmSettings::ApplyTexts() {
    const LibraryFont font = FontOfLibrary();
    SetCaption(TaggedText(Tag(), {platform::kProgramTitle}));
    font.ApplyTo(Font());
    for (const auto& control : Controls()) {
        ApplyTextTo(*control);
        font.ApplyTo(control->Font());
    }
}

void frmSettings::ApplyTextTo(Control& control) {
    if (&control == &lblRemind)
        txtRemind_Change();
    else if (!IsNumeric(control.Tag()))
        return;
    else if (control.Kind() == ControlKind::Label)
        control.SetTag(TaggedText(control.Tag()));
    else
        control.SetCaption(TaggedText(control.Tag()));
}

void frmSettings::UpdateUI() {
    ApplyThemedColors(*this);
}

void frmSettings::ICue_Cue() {
    ShowCues(*this, mCueShown);
}

void frmSettings::ICue_UnCue() {
    HideCues(*this, mCueShown);
}

void frmSettings::EnableOk() {
    cmdOK.SetEnabled(true);
}

void frmSettings::cmdHelp_Click() {
    OpenHelp(Window());
}

void frmSettings::cmdAbout_Click() {
    ShowAbout();
}

void frmSettings::cmdCancel_Click() {
    Unload();
}

} // namespace kestrelmoor
