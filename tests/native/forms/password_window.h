#pragma once

#include "forms/password/frmPass.h"
#include "forms/settings/show_settings.h"
#include "platform/practice/user.h"
#include "runtime/forms/application.h"
#include "shell/program_state.h"
#include "tests/native/support/program_test.h"

#include <functional>
#include <memory>

namespace kestrelmoor::tests {

inline constexpr char16_t kOldPassword[] = u"Old-Password-1"; ///< that of every account of the stock world
inline constexpr char16_t kNewPassword[] = u"Next-Password-2";

/// A language library of the world's own: it says "text NUMBER" for every number.
practice::Library ScriptedLanguage(std::int16_t number);

/// A world with the English library brought up, the user known and no target configured, ready for a
/// password window.
class PasswordWindow : public ProgramTest {
  protected:
    PasswordWindow();
    ~PasswordWindow() override;

    /// The configured servers, all of them active, and whether the local computer takes part.
    static void Configure(const StringList& servers, bool local);

    /// The local computer, a stand-alone server and a domain.
    static void ConfigureAll() { Configure({u"\\\\ARCHIVE", u"PRACTICE"}, true); }

    /// Takes the policies away: a new password of any length passes the check.
    void LiftPolicies();

    void Open();

    Control& At(StringView name) { return form->Find(name); }
    Label& LabelAt(StringView name) { return form->Get<Label>(name); }
    TextBox& Box(StringView name) { return form->Get<TextBox>(name); }
    CheckBox& Same() { return form->Get<CheckBox>(u"chkSame"); }
    ListBox& List() { return form->Get<ListBox>(u"lstOldPass"); }
    std::string Status() { return ToUtf8(Box(u"txtStatus").Text()); }
    std::string CaptionOf(StringView name) { return ToUtf8(At(name).Caption()); }

    /// The rows as they stand, and their targets alone.
    Lines Rows();
    Lines Targets();
    Lines VisibleControls();
    Lines EnabledControls();

    /// A click into the box and the text, key by key.
    void TypeInto(StringView name, StringView text);

    /// Fills the three boxes of the single mode.
    void TypePasswords(StringView old_password, StringView new_password);

    /// A click on the button, and the proof of what the run reports: where the network answered it, each
    /// target that is told as changed lets in with the new password.
    void ClickOk();

    /// Opens the window and makes a whole run in the single mode.
    void Run(StringView old_password = kOldPassword, StringView new_password = kNewPassword);

    /// Does `action` as the `nth` password call from now on is made.
    void AtPasswordCall(int nth, std::function<void()> action);

    /// The servers that a password call went to, in their order.
    Lines ChangedServers() const;

    /// The only loaded form; null: there is none, or there are several.
    static Form* OnlyForm();

    practice::User user;
    std::shared_ptr<frmPass> form;

  private:
    void ProveReport(const String& new_password);

    void (*mShowSettings)(Form& owner) = ShowSettings;
};

} // namespace kestrelmoor::tests
