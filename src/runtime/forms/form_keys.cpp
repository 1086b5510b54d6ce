#include "runtime/forms/accelerator.h"
#include "runtime/forms/application.h"
#include "runtime/forms/tab_order.h"

namespace kestrelmoor {

namespace {

bool IsPressable(const Control& control) {
    return control.Kind() == ControlKind::CommandButton || control.Kind() == ControlKind::CheckBox;
}

} // namespace

void Form::Form_KeyDown(int& /*KeyCode*/, int /*Shift*/) {}

bool Form::KeyDown(int nKeyCode, int nShift) {
    if (!IsLoaded() || !InputEnabled())
        return true;
    const std::shared_ptr<Form> alive = weak_from_this().lock();
    int key_code = nKeyCode;
    if (mKeyPreview)
        Form_KeyDown(key_code, nShift);
    if (key_code == 0 || IsUnloaded() || Route(key_code, nShift))
        return true;
    if (mFocusHolder != nullptr)
        mFocusHolder->Raise(mFocusHolder->KeyDown, key_code, nShift);
    return key_code == 0 || IsUnloaded();
}

bool Form::Route(int nKeyCode, int nShift) {
    if ((nShift & (key::kCtrlMask | key::kAltMask)) != 0)
        return false;
    switch (nKeyCode) {
    case key::kTab:
        return MoveByTab((nShift & key::kShiftMask) != 0);
    case key::kReturn:
        return PressReturn();
    case key::kEscape:
        return PressEscape();
    case key::kLeft:
    case key::kUp:
        return MoveByArrow(true);
    case key::kRight:
    case key::kDown:
        return MoveByArrow(false);
    default:
        return false;
    }
}

bool Form::MoveByTab(bool backward) {
    if (Control* const target = NextStop(mFocusHolder, backward))
        MoveFocusByUser(*target);
    return true;
}

bool Form::MoveByArrow(bool backward) {
    if (mFocusHolder == nullptr || !IsPressable(*mFocusHolder))
        return false;
    const auto accepts = [](const Control& control) { return IsPressable(control) && control.IsStop(); };
    if (Control* const target = NextInTabOrder(mTabOrder, mFocusHolder, backward, accepts))
        MoveFocusByUser(*target);
    return true;
}

bool Form::PressReturn() {
    auto* button = dynamic_cast<CommandButton*>(mFocusHolder);
    if (button == nullptr)
        button = DefaultButton();
    if (button == nullptr)
        return false;
    button->Pressed();
    return true;
}

bool Form::PressEscape() {
    CommandButton* const button = CancelButton();
    if (button == nullptr)
        return false;
    button->Pressed();
    return true;
}

bool Form::KeyPress(char16_t& character) {
    if (!IsLoaded() || !InputEnabled() || mFocusHolder == nullptr)
        return true;
    const auto* const box = dynamic_cast<const TextBox*>(mFocusHolder);
    const bool breaks_lines = box != nullptr && box->MultiLine();
    if (character == key::kTab || character == key::kEscape || (character == key::kReturn && !breaks_lines))
        return true;
    const std::shared_ptr<Form> alive = weak_from_this().lock();
    int code = character;
    mFocusHolder->Raise(mFocusHolder->KeyPress, code);
    character = static_cast<char16_t>(code);
    return character == 0 || IsUnloaded();
}

bool Form::Accelerator(char16_t letter) {
    if (!IsLoaded() || !InputEnabled())
        return true;
    const auto marks = [letter](const Control& control) {
        return control.IsUsable() && HasAccelerator(control.Caption(), letter);
    };
    Control* target = NextInTabOrder(mTabOrder, mFocusHolder, false, marks);
    if (target == nullptr && mFocusHolder != nullptr && marks(*mFocusHolder))
        target = mFocusHolder;
    if (target == nullptr)
        return false;
    FollowAccelerator(*target);
    return true;
}

void Form::FollowAccelerator(Control& target) {
    const std::shared_ptr<Form> alive = weak_from_this().lock();
    const auto accepts = [](const Control& control) { return control.CanTakeFocus(); };
    Control* const holder =
        IsPressable(target) ? &target : NextInTabOrder(mTabOrder, &target, false, accepts);
    if (holder == nullptr || !MoveFocusByUser(*holder) || holder != &target)
        return;
    if (auto* const button = dynamic_cast<CommandButton*>(&target))
        button->Pressed();
    else
        dynamic_cast<CheckBox&>(target).Pressed();
}

void Form::CloseRequested() {
    if (InputEnabled())
        Unload();
}

} // namespace kestrelmoor
