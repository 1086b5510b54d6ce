#include "runtime/errors.h"
#include "runtime/forms/form.h"

namespace kestrelmoor {

CommandButton::CommandButton(Form& form, const ControlDesign& design)
    : Control(form, design), mDefault(design.is_default), mCancel(design.is_cancel) {}

void CommandButton::SetDefault(bool on) {
    if (mDefault == on)
        return;
    if (CommandButton* holder = Parent().DefaultButton(); on && holder != nullptr) {
        holder->mDefault = false;
        holder->Show(Property::Default);
    }
    mDefault = on;
    Show(Property::Default);
}

bool CommandButton::LooksDefault() const {
    const Control* const focused = Parent().FocusHolder();
    if (focused != nullptr && focused->Kind() == ControlKind::CommandButton)
        return focused == this;
    return mDefault;
}

void CommandButton::Pressed() {
    if (IsUsable())
        Raise(Click);
}

CheckBox::CheckBox(Form& form, const ControlDesign& design) : Control(form, design), mValue(design.value) {}

void CheckBox::SetValue(int value) {
    if (value != 0 && value != 1)
        RaiseError(error_number::kInvalidPropertyValue);
    if (mValue == value)
        return;
    mValue = value;
    Show(Property::Value);
    Raise(Click);
}

void CheckBox::Pressed() {
    if (IsUsable())
        SetValue(1 - mValue);
}

} // namespace kestrelmoor
