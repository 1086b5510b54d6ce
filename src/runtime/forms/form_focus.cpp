#include "runtime/forms/application.h"
#include "runtime/forms/tab_order.h"

#include <utility>

namespace kestrelmoor {

// LostFocus goes to the control that was told GotFocus: a handler that moves the focus on, ahead of the news
// of its arrival, leaves no unpaired event behind.
void Form::ChangeFocus(Control* target, bool tell_window) {
    if (target == mActiveControl)
        return;
    const std::shared_ptr<Form> alive = weak_from_this().lock();
    Control* const before = std::exchange(mActiveControl, target);
    if (tell_window)
        TakeWindowFocus();
    ShowDefaultLook(before);
    if (Control* const left = std::exchange(mToldFocus, nullptr))
        left->Raise(left->LostFocus);
    if (target == nullptr || mActiveControl != target || mToldFocus == target)
        return;
    mToldFocus = target;
    target->Raise(target->GotFocus);
}

void Form::TakeWindowFocus() {
    if (!mPeer)
        return;
    if (mActiveControl != nullptr && mActiveControl->Peer() != nullptr)
        mActiveControl->Peer()->TakeFocus();
    else
        mPeer->TakeFocus();
}

void Form::ShowDefaultLook(Control* before) {
    const auto is_button = [](const Control* control) {
        return control != nullptr && control->Kind() == ControlKind::CommandButton;
    };
    if (!is_button(before) && !is_button(mActiveControl))
        return;
    const Control* const usual = DefaultButton();
    for (const auto& control : mControls)
        if (is_button(control.get()) &&
            (control.get() == before || control.get() == mActiveControl || control.get() == usual))
            control->Show(Property::Default);
}

void Form::LeaveIfUnable() {
    if (mActiveControl != nullptr && !mActiveControl->CanTakeFocus())
        ChangeFocus(NextStop(mActiveControl, false), true);
}

Control* Form::NextStop(const Control* from, bool backward) const {
    return NextInTabOrder(mTabOrder, from, backward,
                          [](const Control& control) { return control.TabStop() && control.CanTakeFocus(); });
}

bool Form::MayMoveFocus(const Control* target) {
    if (!InputEnabled())
        return false;
    Control* const holder = mActiveControl;
    if (holder == nullptr || target == nullptr || target == holder || !target->CanTakeFocus())
        return true;
    const std::shared_ptr<Form> alive = weak_from_this().lock();
    bool refused = false;
    holder->Raise(holder->Validate, refused);
    return !refused && !IsUnloaded();
}

void Form::FocusMoved(Control* target) {
    if (target == nullptr || target->CanTakeFocus())
        ChangeFocus(target, false);
    else
        TakeWindowFocus();
}

bool Form::MoveFocusByUser(Control& target) {
    if (!MayMoveFocus(&target) || !target.CanTakeFocus())
        return false;
    ChangeFocus(&target, true);
    return true;
}

} // namespace kestrelmoor
