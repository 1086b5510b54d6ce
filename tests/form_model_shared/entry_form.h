#pragma once

#include "runtime/forms/user_control.h"
#include "tests/form_model_shared/recorded_form.h"

namespace kestrelmoor::tests {

/// A user control of a box and a button "Pick".
class Entry : public UserControl {
  public:
    Entry(Form& form, const ControlDesign& design);

    TextBox& txtEntry = Get<TextBox>(u"txtEntry");
    CommandButton& cmdPick = Get<CommandButton>(u"cmdPick");
};

/// A form with a user control. In tab order: a box for digits, the frame "&Names" that holds a list with
/// check marks and, below it, the entry, a drop-down list, and the buttons "&Add", "OK" (default) and
/// "Cancel" (cancel).
class EntryForm : public ListeningForm {
  public:
    EntryForm();

    TextBox& txtDays = Get<TextBox>(u"txtDays");
    Frame& fraNames = Get<Frame>(u"fraNames");
    ListBox& lstNames = Get<ListBox>(u"lstNames");
    Entry& ucEntry = Get<Entry>(u"ucEntry");
    ComboBox& cbTongue = Get<ComboBox>(u"cbTongue");
    CommandButton& cmdAdd = Get<CommandButton>(u"cmdAdd");
    CommandButton& cmdOK = Get<CommandButton>(u"cmdOK");
    CommandButton& cmdCancel = Get<CommandButton>(u"cmdCancel");
};

} // namespace kestrelmoor::tests
