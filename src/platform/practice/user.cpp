#include "platform/practice/user.h"

#include "platform/practice/window_manners.h"
#include "runtime/forms/application.h"

namespace kestrelmoor::practice {

namespace {

// The key code that stands for a character without a key of its own.
constexpr int kPacket = 231;
constexpr int kLeftButton = 1;

bool IsLetterOrDigitKey(int key) {
    return (key >= u'A' && key <= u'Z') || (key >= u'0' && key <= u'9');
}

int KeyOf(char16_t character) {
    if (character >= u'a' && character <= u'z')
        return character - u'a' + u'A';
    return IsLetterOrDigitKey(character) || character == key::kSpace ? character : kPacket;
}

char16_t CharacterOf(int key, int shift) {
    const bool is_letter = key >= u'A' && key <= u'Z';
    if (is_letter && (shift & key::kShiftMask) == 0)
        return static_cast<char16_t>(key - u'A' + u'a');
    const bool has_one = IsLetterOrDigitKey(key) || key == key::kSpace || key == key::kBack ||
                         key == key::kReturn || key == key::kTab || key == key::kEscape;
    return has_one ? static_cast<char16_t>(key) : u'\0';
}

Form* FrontForm() {
    Form* const form = Application::Current().ActiveForm();
    return form != nullptr && form->Visible() && form->InputEnabled() ? form : nullptr;
}

// What of a key that the form has let pass reaches the window with the focus.
void Deliver(Form& form, int key, char16_t character) {
    if (Control* const control = form.ActiveControl())
        TakeKey(*control, key);
    if (character == 0 || form.KeyPress(character))
        return;
    if (Control* const control = form.ActiveControl())
        TakeCharacter(*control, character);
}

bool PressWithCharacter(int key, int shift, char16_t character) {
    Form* const front = FrontForm();
    if (front == nullptr)
        return false;
    const std::shared_ptr<Form> form = front->shared_from_this();
    if (form->KeyDown(key, shift))
        return true;
    if ((shift & key::kAltMask) != 0)
        return !IsLetterOrDigitKey(key) || form->Accelerator(static_cast<char16_t>(key));
    if ((shift & key::kCtrlMask) == 0)
        Deliver(*form, key, character);
    return true;
}

bool CanBeClicked(const Control& control) {
    const Form& form = control.Parent();
    return form.Visible() && form.InputEnabled() && control.IsUsable();
}

// The press of the button: the window takes it, and moves the focus itself. False: the press was swallowed.
template <class TakesPress>
bool PressMouse(Control& control, const TakesPress& takes_press) {
    Form& form = control.Parent();
    Application::Current().SetActiveForm(&form);
    if (!form.MayMoveFocus(&control))
        return false;
    control.MousePressed(kLeftButton, 0, control.Width() / 2, control.Height() / 2);
    takes_press();
    if (control.CanTakeFocus())
        form.FocusMoved(&control);
    return form.IsLoaded();
}

bool PressRow(RowControl& list, int row) {
    if (!PressMouse(list, [&list, row] { list.RowPressed(row); }))
        return false;
    list.RowChosen(row);
    return true;
}

bool CanBeChosen(const RowControl& list, int row) {
    return CanBeClicked(list) && row >= 0 && row < list.ListCount();
}

} // namespace

bool User::Press(int key, int shift) {
    return PressWithCharacter(key, shift, CharacterOf(key, shift));
}

bool User::Type(StringView text) {
    for (const char16_t character : text) {
        const bool taken = character == u'\n'   ? Press(key::kReturn)
                           : character == u'\t' ? Press(key::kTab)
                                                : PressWithCharacter(KeyOf(character), 0, character);
        if (!taken)
            return false;
    }
    return true;
}

bool User::ClickOn(Control& control) {
    if (!CanBeClicked(control))
        return false;
    const std::shared_ptr<Form> form = control.Parent().shared_from_this();
    if (PressMouse(control, [&control] { TakePress(control); }))
        TakeClick(control);
    return true;
}

bool User::ChooseRow(RowControl& list, int row) {
    if (!CanBeChosen(list, row))
        return false;
    const std::shared_ptr<Form> form = list.Parent().shared_from_this();
    PressRow(list, row);
    return true;
}

bool User::ToggleRow(ListBox& list, int row) {
    if (!CanBeChosen(list, row))
        return false;
    const std::shared_ptr<Form> form = list.Parent().shared_from_this();
    if (PressRow(list, row))
        list.RowToggled(row);
    return true;
}

bool User::CloseWindow(Form& form) {
    if (!form.Visible() || !form.InputEnabled())
        return false;
    form.CloseRequested();
    return true;
}

} // namespace kestrelmoor::practice
