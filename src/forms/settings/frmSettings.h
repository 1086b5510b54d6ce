#pragma once

#include "forms/settings/ctlAddComputer.h"
#include "runtime/array.h"
#include "runtime/forms/form.h"
#include "window_services/ICue.h"
#include "window_services/IThemed.h"

#include <cstdint>

namespace kestrelmoor {

/// The dialog in which the user edits what the program keeps. It works on the program's state: Load reads it,
/// OK writes it, and stores it as well where the user has asked for that. OK is disabled until something has
/// changed.
///
/// Where to look: the controls and their places in frmSettings_design.cpp, the life of the window and its
/// texts in frmSettings.cpp, the rows of servers and the entry over them in server_list.cpp, the sentence
/// about the reminder in reminder_row.cpp, the languages in language_list.cpp, the click on OK in
/// settings_ok.cpp.
class frmSettings : public Form, public ICue, public IThemed {
  public:
    frmSettings();

    void ICue_Cue() override;
    void ICue_UnCue() override;
    void UpdateUI() override;

  protected:
    void Form_Load() override;

  private:
    // frmSettings.cpp
    void ConnectHandlers();
    void ConnectEntries();
    void ApplyTexts();
    void ApplyTextTo(Control& control);
    void ShowState();
    void EnableOk();
    void cmdHelp_Click();
    static void cmdAbout_Click();
    void cmdCancel_Click();

    // server_list.cpp
    void FillServers();
    void cmdAddServer_Click();
    void cmdRemServer_Click();
    void lstServers_Click();
    void lstServers_GotFocus();
    void lstServers_ItemCheck(int row);
    void ucAddComp_LostFocus();
    int FindPlaceholder() const;
    int FindServer(const String& sName, int placeholder) const;

    // reminder_row.cpp
    void FitReminderRow();
    void txtRemind_Change();
    static void txtRemind_KeyPress(int& KeyAscii);
    void txtRemind_Validate(bool& Cancel) const;
    void txtRemind_FocusChange();

    // language_list.cpp
    void FillLanguages();
    void cbLang_Click();
    static String GetLanguageName(std::int16_t nLangID);
    static Array<std::int16_t> GetLanguageList();
    static Array<std::int16_t> GetDefaultLibLanguages();

    // settings_ok.cpp
    void cmdOK_Click();
    void StoreReminderTime() const;
    void StoreServers() const;

    CommandButton& cmdHelp;
    ComboBox& cbLang;
    CommandButton& cmdOK;
    CommandButton& cmdCancel;
    CommandButton& cmdAbout;
    CheckBox& chkLocalPass;
    CommandButton& cmdAddServer;
    CommandButton& cmdRemServer;
    CheckBox& chkRemind;
    TextBox& txtRemind;
    CheckBox& chkPermanent;
    Frame& fraNetPwd;
    ListBox& lstServers;
    ctlAddComputer& ucAddComp;
    Label& lblRemind;

    static constexpr std::int32_t kSecondsOfDay = 86400;

    bool mCueShown = false; ///< keyboard cues are shown on this window
};

} // namespace kestrelmoor
