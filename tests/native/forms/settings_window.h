#pragma once

#include "forms/settings/ctlAddComputer.h"
#include "forms/settings/frmSettings.h"
#include "platform/practice/user.h"
#include "runtime/forms/application.h"
#include "shell/program_state.h"
#include "tests/native/support/program_test.h"
#include "tests/native/support/test_language.h"

#include <memory>

namespace kestrelmoor::tests {

/// The texts of the settings window in the tests' language: "text NUMBER", with the arguments that it has;
/// the texts of the labels have an accelerator mark ahead.
TestTexts SettingsTexts();

/// A settings window in the tests' language, 14 days, no server, the local computer taking part and nothing
/// started at logon, ready to be opened.
class SettingsWindow : public ProgramTest {
  protected:
    SettingsWindow();
    ~SettingsWindow() override;

    /// The configured servers, and which of them are active.
    static void Configure(const StringList& servers, const std::vector<bool>& active = {});

    void Load(); ///< makes a window and runs its Load
    void Open(); ///< and shows it

    Control& At(StringView name) { return form->Find(name); }
    ListBox& List() { return form->Get<ListBox>(u"lstServers"); }
    ComboBox& Languages() { return form->Get<ComboBox>(u"cbLang"); }
    TextBox& Days() { return form->Get<TextBox>(u"txtRemind"); }
    CheckBox& Check(StringView name) { return form->Get<CheckBox>(name); }
    ctlAddComputer& Entry() { return form->Get<ctlAddComputer>(u"ucAddComp"); }
    TextBox& EntryBox() { return Entry().Get<TextBox>(u"txtComputer"); }
    std::string CaptionOf(StringView name) { return ToUtf8(At(name).Caption()); }
    std::string TagOf(StringView name) { return ToUtf8(At(name).Tag()); }
    bool OkEnabled() { return At(u"cmdOK").Enabled(); }

    /// The rows of the list, a checked one with "* " ahead.
    Lines Rows();
    std::string CurrentRow();

    /// The rows of the drop-down list, each with its number: "name=1033".
    Lines LanguageRows();

    void Click(StringView name);
    void Type(StringView text);

    /// Clicks on the box and takes all of its text away, key by key.
    void ClearDays();
    void TypeDays(StringView text); ///< and types this in its place

    /// Clicks on Add and types a name; the entry stays open.
    void AddName(StringView name);

    /// A click on the days, which closes the entry.
    void Leave() { Click(u"txtRemind"); }

    /// The configured servers as they are now, an active one with "* " ahead.
    static Lines Servers();

    practice::User user;
    std::shared_ptr<frmSettings> form;
};

} // namespace kestrelmoor::tests
