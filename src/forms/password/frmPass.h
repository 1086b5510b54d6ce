#pragma once

#include "forms/password/password_collection.h"
#include "runtime/forms/form.h"
#include "window_services/ICue.h"

#include <cstdint>
#include <map>

namespace kestrelmoor {

/// The main window: takes the old password or passwords and the new one, changes it on every target in turn
/// and says for each what became of it. Every opening is a new instance, and what was typed ends with it.
///
/// Where to look: the controls and their places in frmPass_design.cpp, the life of the window and its two
/// modes in frmPass.cpp, the list of targets in old_password_list.cpp, the guard on the button and the checks
/// in field_validation.cpp, the click on OK and the run in change_run.cpp.
class frmPass : public Form, public ICue {
  public:
    frmPass();

    void ICue_Cue() override;
    void ICue_UnCue() override;

  protected:
    void Form_Initialize() override;
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Terminate() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;

  private:
    /// Which controls were enabled, by name, while a click on OK keeps them all disabled.
    using ControlStates = std::map<String, bool>;

    // frmPass.cpp
    void ConnectHandlers();
    void CloseStatusGap();
    void ApplyTexts();
    void ReapplyCues();
    void ReloadLanguage();
    void ShowOldPassCaption();
    void MoveFrom(const Control& first, Twips distance);
    void chkSame_Click();
    void EnterSingleMode();
    void EnterListMode();
    void cmdSettings_Click();
    void cmdCancel_Click();

    // old_password_list.cpp
    void LoadTargets();
    void AddTarget(const String& sName);
    int FindTarget(const String& sName) const;
    String TargetName(int row) const;

    // field_validation.cpp
    void txtNewPass_Change();
    void txtOldPass_Change();
    void UpdateOkButton();
    bool PassesChecks(const ControlStates& states);
    void RejectNewPassword(const String& sMessage, const ControlStates& states);
    std::int32_t GetRequiredLength() const;

    // change_run.cpp
    void cmdOK_Click();
    ControlStates DisableControls();
    void RestoreEnabled(const ControlStates& states);
    void GoBack();
    void RunChange(ControlStates& states);
    void ShowRunLayout(ControlStates& states);
    bool ChangeTarget(int row, const String& sSingleOldPass);
    std::int32_t ChangeOn(const String& sTarget, const String& sOldPass, const String& sNewPass,
                          String& sError);
    void AppendStatus(const String& sLine);
    void ShowOutcome(const ControlStates& states, bool bFailed);

    Label& lblUser;
    TextBox& txtUser;
    TextBox& txtStatus;
    CheckBox& chkSame;
    Label& lblOldPass;
    TextBox& txtOldPass;
    ListBox& lstOldPass;
    Label& lblNewPass;
    TextBox& txtNewPass;
    TextBox& txtConfirm;
    Label& lblWait;
    CommandButton& cmdSettings;
    CommandButton& cmdOK;
    CommandButton& cmdCancel;

    bool mCueShown = false;           ///< keyboard cues are shown on this window
    bool mLogOffOnExit = false;       ///< log off at Unload
    bool mRunDone = false;            ///< the run has started
    PasswordCollection mOldPasswords; ///< old password per target
    String mSavedOldPass;             ///< the single mode's old password while the list mode is on
    Twips mOldPassTop = 0;            ///< the place of txtOldPass on the form itself
    Twips mOldPassWidth = 0;
    Twips mOldPassHeight = 0;
};

} // namespace kestrelmoor
