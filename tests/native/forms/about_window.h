#pragma once

#include "forms/about/frmAbout.h"
#include "platform/practice/user.h"
#include "platform/registry.h"
#include "runtime/forms/application.h"
#include "shell/program_state.h"
#include "tests/native/support/program_test.h"
#include "tests/native/support/test_language.h"

#include <memory>

namespace kestrelmoor::tests {

inline constexpr char16_t kAddress[] = u"https://www.example.org/";
inline constexpr char16_t kTranslatorsPage[] = u"https://www.example.net/";
inline constexpr char16_t kAboutHelp[] = u"C:\\Program Files\\Kestrelmoor\\help.html";
inline constexpr char16_t kUninstallKey[] =
    u"HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"
    u"{5C1E7A90-3B2D-4E68-9F14-A07D2C86B3E1}_is1";

/// The call that loads the window's icon.
inline constexpr char kLargeIcon[] = R"(LoadImageW("1", "48", "48"))";

/// The texts of the about window in the tests' language: "text NUMBER", with the arguments that it has; the
/// translator's address is kTranslatorsPage.
TestTexts AboutTexts();

/// An about window in the tests' language on today's system, of a program that its installer has not
/// installed, with a help file, ready to be opened.
class AboutWindow : public ProgramTest {
  protected:
    AboutWindow();
    ~AboutWindow() override;

    /// The installer's record, with an address.
    void Install(StringView address = kAddress);

    /// The texts of the window with one of them in other words.
    static void Say(std::int16_t number, const String& text);

    /// A visual style with colours of its own. Each of the coming updates leaves its theme open for good.
    void PutTheme(std::size_t updates = 1);

    void Make();         ///< a window that is not loaded yet
    void Load();         ///< makes a window, if there is none yet, and runs its Load
    void Open();         ///< and shows it
    void CloseAndDrop(); ///< unloads it and lets it go

    Control& At(StringView name) { return form->Find(name); }
    Label& LabelAt(StringView name) { return form->Get<Label>(name); }
    std::string CaptionOf(StringView name) { return ToUtf8(At(name).Caption()); }

    /// What the shell was asked to open.
    Lines Opened() const { return CallsOf({"ShellExecuteW"}); }

    /// The call that opens `file` for the form.
    std::string Opening(const String& file) const;

    practice::User user;
    std::shared_ptr<frmAbout> form;
};

} // namespace kestrelmoor::tests
