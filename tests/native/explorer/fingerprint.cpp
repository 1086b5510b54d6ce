#include "tests/native/explorer/fingerprint.h"

#include "platform/practice/list_views.h"
#include "platform/practice/world/world.h"
#include "runtime/conversions.h"
#include "runtime/forms/application.h"
#include "runtime/forms/controls.h"
#include "shell/program_state.h"

#include <algorithm>

namespace kestrelmoor::tests {

namespace {

/// Nothing, something, a number of days that may stand or one that may not.
char ClassOf(const Control& box, const String& text) {
    if (text.empty())
        return 'e';
    if (box.Name() != u"txtRemind")
        return 't';
    return LeadingNumber(text) > 99 ? '>' : '<';
}

std::string RowsOf(const RowControl& list) {
    const auto* const box = dynamic_cast<const ListBox*>(&list);
    std::string rows = std::to_string(list.ListIndex()) + ":";
    if (box != nullptr)
        rows += std::to_string(practice::ListViews::Current().TopRow(*box)) + ":";
    for (int row = 0; box != nullptr && row < list.ListCount(); ++row) {
        const bool placeholder = list.List(row) == u"...";
        const std::int32_t mask = list.ItemData(row);
        rows += placeholder ? '.' : mask == 0 ? '0' : mask == 8 ? '8' : 'm';
    }
    return rows;
}

/// Check boxes that decide nothing but what OK stores.
bool IsPlainChoice(const Control& control) {
    const String& name = control.Name();
    return name == u"chkRemind" || name == u"chkPermanent" || name == u"chkLocalPass";
}

std::string StateOf(const Control& control) {
    std::string state;
    if (const auto* const box = dynamic_cast<const TextBox*>(&control))
        state += ClassOf(control, box->Text());
    else if (const auto* const rows = dynamic_cast<const RowControl*>(&control))
        state += RowsOf(*rows);
    else if (const auto* const check = dynamic_cast<const CheckBox*>(&control))
        state += check->Value() != 0 && !IsPlainChoice(control) ? 'x' : '-';
    else if (const auto* const button = dynamic_cast<const CommandButton*>(&control))
        state += button->Default() ? 'd' : '-';
    return state + (control.IsUsable() ? "" : control.Enabled() ? "h" : "n");
}

/// What the settings window begins with, as far as it shows.
std::string HeldForSettings() {
    return std::to_string(gServerCount) + " servers, " + std::to_string(gLangID);
}

} // namespace

std::string Fingerprint(const WindowRules& seen) {
    std::string print;
    for (const auto& form : Application::Current().Forms()) {
        print += ToUtf8(form->Name()) + " " + ToUtf8(form->FocusHolder() ? form->FocusHolder()->Name() : u"");
        for (const Control* const control : form->AllControls())
            if (control->Kind() != ControlKind::Label && control->Kind() != ControlKind::Line)
                print += "," + StateOf(*control);
        print += seen.KeepsPassword(*form) ? ",kept;" : ";";
    }
    if (practice::TheWorld().browser.Current() != nullptr)
        print += "dialog";
    return print.empty() ? "ended" : print + HeldForSettings();
}

} // namespace kestrelmoor::tests
