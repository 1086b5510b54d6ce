#include "tests/native/sessions/user_actions.h"

#include "platform/practice/user.h"
#include "platform/practice/world/world.h"
#include "runtime/forms/application.h"
#include "runtime/forms/user_control.h"

#include <algorithm>
#include <set>

namespace kestrelmoor::tests {

namespace {

using Actions = std::vector<UserAction>;

constexpr const char* kNames[] = {"click", "double click", "choose", "check", "scroll",       "point at",
                                  "press", "type",         "close",  "pick",  "cancel dialog"};

/// The control of that name on the form in front; null: there is none.
Control* ControlNamed(const String& name) {
    Form* const form = Application::Current().ActiveForm();
    if (form == nullptr)
        return nullptr;
    for (Control* const control : form->AllControls())
        if (control->Name() == name)
            return control;
    return nullptr;
}

void AddRows(Actions& actions, const RowControl& list) {
    const auto* const box = dynamic_cast<const ListBox*>(&list);
    for (int row = 0; row < list.ListCount(); ++row) {
        actions.push_back({ActionKind::ChooseRow, list.Name(), row});
        if (box == nullptr)
            continue;
        if (box->Style() == ListStyle::CheckBoxes)
            actions.push_back({ActionKind::ToggleRow, list.Name(), row});
    }
    if (box != nullptr && list.ListCount() > 4)
        for (const int top : {0, 1, list.ListCount() - 1})
            actions.push_back({ActionKind::ScrollTo, list.Name(), top});
}

/// The second click comes behind the end of what the first one has opened.
bool OpensAWindow(const Control& control) {
    const String& name = control.Name();
    return name == u"cmdSettings" || name == u"cmdAbout" || name == u"cmdBrowse";
}

void AddInputsOf(Actions& actions, const Control& control) {
    switch (control.Kind()) {
    case ControlKind::CommandButton:
    case ControlKind::CheckBox:
        if (!OpensAWindow(control))
            actions.push_back({ActionKind::DoubleClick, control.Name()});
        [[fallthrough]];
    case ControlKind::TextBox:
    case ControlKind::Label:
        actions.push_back({ActionKind::Click, control.Name()});
        return;
    case ControlKind::ListBox:
    case ControlKind::ComboBox:
        actions.push_back({ActionKind::Click, control.Name()});
        AddRows(actions, dynamic_cast<const RowControl&>(control));
        return;
    default:
        return;
    }
}

/// The key that bears a letter or digit; NUL: none does.
char16_t KeyOf(char16_t character) {
    if (character >= u'a' && character <= u'z')
        return static_cast<char16_t>(character - u'a' + u'A');
    const bool has_one = (character >= u'A' && character <= u'Z') || (character >= u'0' && character <= u'9');
    return has_one ? character : u'\0';
}

void AddKeys(Actions& actions, const Form& form) {
    for (const int code : {key::kTab, key::kReturn, key::kEscape, key::kSpace, key::kBack, key::kUp,
                           key::kDown, key::kPageDown, key::kHome, key::kF1})
        actions.push_back({ActionKind::Press, {}, code});
    actions.push_back({ActionKind::Press, {}, key::kTab, key::kShiftMask});
    std::set<char16_t> letters;
    for (const Control* const control : form.AllControls())
        for (const String& text : {control->Caption(), control->Tag()})
            if (const std::size_t mark = text.find(u'&'); mark != String::npos && mark + 1 < text.size())
                letters.insert(KeyOf(text[mark + 1]));
    letters.erase(u'\0');
    for (const char16_t letter : letters)
        actions.push_back({ActionKind::Press, {}, letter, key::kAltMask});
    for (const char16_t character : {u'a', u'7'})
        actions.push_back({ActionKind::Type, {}, character});
}

Actions DialogActions(const practice::BrowseDialog& dialog) {
    Actions actions{{ActionKind::CancelDialog}};
    for (std::size_t row = 0; row < dialog.Rows().size(); ++row)
        actions.push_back({ActionKind::Pick, {}, static_cast<int>(row)});
    return actions;
}

/// A row that has no computer leaves the dialog open.
bool PickRow(practice::BrowseDialog& dialog, int row) {
    const auto rows = dialog.Rows();
    return row >= 0 && static_cast<std::size_t>(row) < rows.size() &&
           dialog.Select(rows[static_cast<std::size_t>(row)]) && dialog.PressOk();
}

bool CarryOutInDialog(const UserAction& action, practice::BrowseDialog& dialog) {
    if (action.kind == ActionKind::Pick)
        return PickRow(dialog, action.number);
    if (action.kind != ActionKind::CancelDialog)
        return false;
    dialog.Cancel();
    return true;
}

bool CarryOutAtKeyboard(const UserAction& action) {
    practice::User user;
    if (action.kind == ActionKind::Press)
        return user.Press(action.number, action.shift);
    const auto character = static_cast<char16_t>(action.number);
    return user.Type(StringView(&character, 1));
}

/// Forms that stand behind a modal one, each in the middle of a handler.
auto WaitingForms() {
    return std::ranges::count_if(Application::Current().Forms(),
                                 [](const auto& form) { return !form->InputEnabled(); });
}

/// A second click is another one only where the first has left the control there. Where the first has closed
/// a modal window, the one behind it goes on with its handler ahead of the second.
bool ClickTwice(const String& name, Control& control, const std::function<void()>& between) {
    practice::User user;
    const auto waiting = WaitingForms();
    if (!user.ClickOn(control))
        return false;
    if (WaitingForms() < waiting)
        return true;
    if (between)
        between();
    if (Control* const again = ControlNamed(name))
        user.ClickOn(*again);
    return true;
}

bool CarryOutOn(Control& control, const UserAction& action, const std::function<void()>& between) {
    practice::User user;
    auto* const rows = dynamic_cast<RowControl*>(&control);
    auto* const list = dynamic_cast<ListBox*>(&control);
    switch (action.kind) {
    case ActionKind::Click:
        return control.Kind() == ControlKind::Label ? user.PressOn(control, 1) : user.ClickOn(control);
    case ActionKind::DoubleClick:
        return ClickTwice(action.control, control, between);
    case ActionKind::ChooseRow:
        return rows != nullptr && user.ChooseRow(*rows, action.number);
    case ActionKind::ToggleRow:
        return list != nullptr && user.ToggleRow(*list, action.number);
    case ActionKind::ScrollTo:
        return list != nullptr && user.ScrollTo(*list, action.number);
    case ActionKind::Point:
        return user.MoveOnto(control);
    default:
        return false;
    }
}

} // namespace

std::string TextOf(const UserAction& action) {
    std::string text = kNames[static_cast<std::size_t>(action.kind)];
    if (!action.control.empty())
        text += " " + ToUtf8(action.control);
    if (action.kind == ActionKind::Type) {
        const auto character = static_cast<char16_t>(action.number);
        return text + " " + ToUtf8(StringView(&character, 1));
    }
    const bool counts = action.kind == ActionKind::ChooseRow || action.kind == ActionKind::ToggleRow ||
                        action.kind == ActionKind::ScrollTo || action.kind == ActionKind::Pick ||
                        action.kind == ActionKind::Press;
    if (counts)
        text += " " + std::to_string(action.number);
    return action.shift != 0 ? text + " with " + std::to_string(action.shift) : text;
}

std::vector<UserAction> PossibleActions() {
    if (const auto* const dialog = practice::TheWorld().browser.Current())
        return DialogActions(*dialog);
    const Form* const form = Application::Current().ActiveForm();
    if (form == nullptr || !form->Visible() || !form->InputEnabled())
        return {};
    Actions actions;
    for (const Control* const control : form->AllControls())
        if (control->IsUsable() && (control->Kind() != ControlKind::Label || control->MouseDown))
            AddInputsOf(actions, *control);
    AddKeys(actions, *form);
    actions.push_back({ActionKind::CloseWindow});
    return actions;
}

bool CarryOut(const UserAction& action, const std::function<void()>& between) {
    if (auto* const dialog = practice::TheWorld().browser.Current())
        return CarryOutInDialog(action, *dialog);
    Form* const form = Application::Current().ActiveForm();
    if (form == nullptr)
        return false;
    if (action.kind == ActionKind::CloseWindow)
        return practice::User().CloseWindow(*form);
    if (action.control.empty())
        return CarryOutAtKeyboard(action);
    Control* const control = ControlNamed(action.control);
    return control != nullptr && CarryOutOn(*control, action, between);
}

} // namespace kestrelmoor::tests
