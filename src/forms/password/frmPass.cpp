#include "forms/password/frmPass.h"

#include "forms/about/open_help.h"
#include "forms/password/frmPass_design.h"
#include "forms/settings/show_settings.h"
#include "localization/language_resolution.h"
#include "localization/text_application.h"
#include "platform/process.h"
#include "platform/visual_style.h"
#include "runtime/conversions.h"
#include "shell/messages.h"
#include "shell/program_state.h"
#include "window_services/keyboard_cues.h"
#include "window_services/theme_colours.h"

namespace kestrelmoor {

namespace {

constexpr int kMaskColumn = 89; ///< dialog units: the second column lies under txtOldPass

} // namespace

frmPass::frmPass()
    : Form(kfrmPassDesign), lblUser(Get<Label>(u"lblUser")), txtUser(Get<TextBox>(u"txtUser")),
      txtStatus(Get<TextBox>(u"txtStatus")), chkSame(Get<CheckBox>(u"chkSame")),
      lblOldPass(Get<Label>(u"lblOldPass")), txtOldPass(Get<TextBox>(u"txtOldPass")),
      lstOldPass(Get<ListBox>(u"lstOldPass")), lblNewPass(Get<Label>(u"lblNewPass")),
      txtNewPass(Get<TextBox>(u"txtNewPass")), txtConfirm(Get<TextBox>(u"txtConfirm")),
      lblWait(Get<Label>(u"lblWait")), cmdSettings(Get<CommandButton>(u"cmdSettings")),
      cmdOK(Get<CommandButton>(u"cmdOK")), cmdCancel(Get<CommandButton>(u"cmdCancel")) {
    ConnectHandlers();
}

void frmPass::ConnectHandlers() {
    chkSame.Click = [this] { chkSame_Click(); };
    cmdSettings.Click = [this] { cmdSettings_Click(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    txtNewPass.Change = [this] { txtNewPass_Change(); };
    txtNewPass.GotFocus = txtNewPass.LostFocus = [this] { txtNewPass_FocusChange(); };
    txtConfirm.GotFocus = txtConfirm.LostFocus = [this] { txtConfirm_FocusChange(); };
    txtOldPass.Change = [this] { txtOldPass_Change(); };
    txtOldPass.GotFocus = [this] { txtOldPass_GotFocus(); };
    txtOldPass.LostFocus = [this] { txtOldPass_LostFocus(); };
    txtOldPass.KeyDown = [this](int& KeyCode, int /*Shift*/) { txtOldPass_KeyDown(KeyCode); };
    lstOldPass.GotFocus = [this] { lstOldPass_GotFocus(); };
    lstOldPass.Click = [this] { lstOldPass_Click(); };
    lstOldPass.Scroll = [this] { lstOldPass_Scroll(); };
}

void frmPass::Form_Initialize() {
    ReadKeyboardCues();
    if (gPassFormCount == 0) {
        platform::InitCommonControls();
        if (!gKeyboardCues)
            InstallCueHooks();
    }
    ++gPassFormCount;
}

void frmPass::Form_Load() {
    CloseStatusGap();
    LoadTargets();
    mOldPassTop = txtOldPass.Top();
    mOldPassWidth = txtOldPass.Width();
    mOldPassHeight = txtOldPass.Height();
    lstOldPass.SetTabStops({kMaskColumn});
    ApplyTexts();
    UpdateThemeState();
    UpdateUI();
    mCueShown = !gKeyboardCues;
    TurnCues(*this, mCueShown);
    chkSame_Click();
    txtUser.SetText(gUserName);
    if (lstOldPass.ListCount() < 2)
        chkSame.SetValue(1);
    lstOldPass.SetListIndex(-1);
    FindHelpFile();
    cmdOK.SetEnabled(false);
    // A hidden control can't take the focus.
    Show();
    if (IsUnloaded())
        return;
    if (chkSame.Value() != 0)
        txtOldPass.SetFocus();
    else
        lstOldPass.SetFocus();
    SubclassWindow();
}

void frmPass::Form_Unload() {
    UnsubclassWindow();
    if (mLogOffOnExit)
        LogOff();
}

void frmPass::LogOff() {
    platform::ExitWindowsEx(0, 0);
}

void frmPass::Form_Terminate() {
    --gPassFormCount;
    if (gPassFormCount == 0)
        RemoveCueHooks();
}

void frmPass::Form_KeyDown(int& KeyCode, int /*Shift*/) {
    if (KeyCode != key::kF1)
        return;
    if (!gHelpFile.empty())
        OpenHelp(Window());
    KeyCode = 0;
}

void frmPass::ICue_Cue() {
    ShowCues(*this, mCueShown);
}

void frmPass::ICue_UnCue() {
    HideCues(*this, mCueShown);
}

/// The status box appears with the run only; until then the controls below it stand in its place.
void frmPass::CloseStatusGap() {
    const Twips gap = chkSame.Top() - txtStatus.Top();
    MoveFrom(chkSame, -gap);
    SetHeight(Height() - gap);
}

/// Moves every control at or behind `first` in tab order.
void frmPass::MoveFrom(const Control& first, Twips distance) {
    for (const auto& control : Controls())
        if (control->TabIndex() >= first.TabIndex())
            control->SetTop(control->Top() + distance);
}

void frmPass::ApplyTexts() {
    const LibraryFont font = FontOfLibrary();
    SetCaption(TaggedText(Tag()));
    font.ApplyTo(Font());
    for (const auto& control : Controls()) {
        if (const auto* label = dynamic_cast<const Label*>(control.get())) {
            const auto number = static_cast<std::int16_t>(label->LinkTimeout());
            control->SetTag(number != 0 ? LoadMessage(number, {}) : String());
        } else if (IsNumeric(control->Tag())) {
            control->SetCaption(TaggedText(control->Tag()));
        }
        font.ApplyTo(control->Font());
    }
}

void frmPass::ShowOldPassCaption() {
    if (mCueShown)
        ShowCaptionCue(lblOldPass);
    else
        HideCaptionCue(lblOldPass);
}

void frmPass::chkSame_Click() {
    const bool single = chkSame.Value() != 0;
    const Twips shift = single ? -lstOldPass.Height() : lstOldPass.Height();
    if (single)
        EnterSingleMode();
    else
        EnterListMode();
    ShowOldPassCaption();
    MoveFrom(lblNewPass, shift);
    SetHeight(Height() + shift);
    lstOldPass.SetVisible(!single);
    txtOldPass.SetVisible(single);
    UpdateOkButton();
}

void frmPass::AskForEachOldPass() {
    chkSame.SetValue(0);
}

void frmPass::EnterSingleMode() {
    lblOldPass.SetTag(LoadMessage(301, {}));
    txtOldPass.SetBorderStyle(1);
    txtOldPass.SetText(mSavedOldPass);
    txtOldPass.Move(txtOldPass.Left(), mOldPassTop, mOldPassWidth, mOldPassHeight);
}

void frmPass::EnterListMode() {
    lblOldPass.SetTag(LoadMessage(302, {}));
    mOldPassHeight = txtOldPass.Height();
    mOldPassTop = txtOldPass.Top();
    mOldPassWidth = txtOldPass.Width();
    mSavedOldPass = txtOldPass.Text();
    txtOldPass.SetBorderStyle(0);
}

void frmPass::cmdSettings_Click() {
    const std::int16_t language = gLangID;
    ShowSettings(*this);
    if (IsUnloaded())
        return;
    if (gLangID != language) {
        ReloadLanguage();
        if (IsUnloaded())
            return;
    }
    LoadTargets();
}

void frmPass::ReloadLanguage() {
    gLocalizer = nullptr;
    if (LoadLocalization(gLangID)) {
        Unload();
        return;
    }
    ApplyTexts();
    mCueShown = !mCueShown;
    TurnCues(*this, mCueShown);
    FindHelpFile();
}

void frmPass::cmdCancel_Click() {
    Unload();
}

} // namespace kestrelmoor
