#pragma once

#include "tests/native/forms/password_window.h"

namespace kestrelmoor::tests {

/// A password window in the list mode, with nothing in edit yet. Three targets unless others are configured:
/// row 0 the local computer, row 1 \\ARCHIVE, row 2 PRACTICE.
class PasswordRows : public PasswordWindow {
  protected:
    PasswordRows() { ConfigureAll(); }

    /// Opens the window and clears the check box with the mouse, which leaves the focus there.
    void OpenRows();

    /// A row as it looks with a mask of so many characters.
    static std::string Masked(const std::string& name, std::size_t length = 8);

    /// Chooses a row with the mouse, which opens the box over it.
    void Edit(int row);

    /// Chooses a row and types an old password for it; the box stays open.
    void TypeOld(int row, StringView password);

    /// Leaves the box, which commits the edit.
    void Leave();

    TextBox& InPlace() { return Box(u"txtOldPass"); }
    bool EditIsOpen() { return InPlace().Visible() && form->ActiveControl() == &InPlace(); }
    bool OkEnabled() { return At(u"cmdOK").Enabled(); }

    /// Clicks on the settings button; `show` stands for the settings window.
    void Visit(void (*show)(Form& owner));

    /// `count` servers named \\S00000, \\S00001 ...
    static StringList ManyServers(int count);
};

} // namespace kestrelmoor::tests
