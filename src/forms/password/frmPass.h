#pragma once

#include "forms/password/password_collection.h"
#include "platform/window_messages.h"
#include "runtime/forms/form.h"
#include "window_services/ICue.h"
#include "window_services/IRedirect.h"
#include "window_services/IThemed.h"

#include <cstdint>
#include <map>
#include <unordered_set>

namespace kestrelmoor {

/// The main window: takes the old password or passwords and the new one, changes it on every target in turn
/// and says for each what became of it. Every opening is a new instance, and what was typed ends with it.
///
/// Where to look: the controls and their places in frmPass_design.cpp, the life of the window and its two
/// modes in frmPass.cpp, the list of targets in old_password_list.cpp and the box over its rows in
/// row_edit.cpp, the guard on the button and the checks in field_validation.cpp, the click on OK and the run
/// in change_run.cpp, the messages of its window in frmPass_messages.cpp.
class frmPass : public Form, public ICue, public IRedirect, public IThemed {
  public:
    frmPass();

    void ICue_Cue() override;
    void ICue_UnCue() override;
    void UpdateUI() override;
    void WndProc(WindowHandle hWnd, std::uint32_t uMsg, std::uintptr_t wParam, std::intptr_t lParam,
                 std::intptr_t& result) override;

    /// Takes a target out of the list, if it is there; with fewer than two left the single mode is on.
    void RemoveTarget(const String& sName);

    /// Leaves the single mode: passwords that have come apart are asked for one by one.
    void AskForEachOldPass();

  protected:
    void Form_Initialize() override;
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Terminate() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;

  private:
    /// Which controls were enabled, by name, while a click on OK keeps them all disabled.
    using ControlStates = std::map<String, bool>;

    /// One number for each row, the same for names that differ in case alone: a name whose number is not
    /// among them has no row, which so takes no search.
    using TargetKeys = std::unordered_multiset<std::size_t>;

    // frmPass.cpp
    void ConnectHandlers();
    void CloseStatusGap();
    void ApplyTexts();
    void ReloadLanguage();
    void ShowOldPassCaption();
    void MoveFrom(const Control& first, Twips distance);
    void chkSame_Click();
    void EnterSingleMode();
    void EnterListMode();
    void cmdSettings_Click();
    void cmdCancel_Click();
    static void LogOff();

    // old_password_list.cpp
    void LoadTargets();
    void AddTarget(const String& sName, bool bAtTop);
    bool EndEditInTime();
    int FindTarget(const String& sName) const;
    String TargetName(int row) const;
    void SetTargetMask(int row, std::int32_t nLength);
    void RefreshMasks();
    std::int32_t StoredPassLength() const;

    // row_edit.cpp
    void lstOldPass_GotFocus();
    void lstOldPass_Click();
    void lstOldPass_Scroll();
    void BeginRowEdit();
    void txtOldPass_GotFocus();
    void txtOldPass_LostFocus();
    void txtOldPass_KeyDown(int& KeyCode);

    // frmPass_messages.cpp
    void SubclassWindow();
    void UnsubclassWindow();

    // field_validation.cpp
    void txtNewPass_Change();
    void txtNewPass_FocusChange();
    void txtConfirm_FocusChange();
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
    TargetKeys mTargetKeys;
    String mSavedOldPass;  ///< the single mode's old password while the list mode is on
    Twips mOldPassTop = 0; ///< the place of txtOldPass on the form itself
    Twips mOldPassWidth = 0;
    Twips mOldPassHeight = 0;
    std::int16_t mEditIndex = 0;       ///< the row whose old password txtOldPass holds
    std::int32_t mOtherPassLength = 0; ///< length of all stored old passwords but that one
    platform::PreviousProcedure mPrevWndProc = 0;
};

} // namespace kestrelmoor
