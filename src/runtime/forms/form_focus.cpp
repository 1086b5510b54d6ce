#include "runtime/forms/application.h"
#include "runtime/forms/tab_order.h"

#include <utility>

namespace kestrelmoor {

namespace {

Control* HostOf(const Control* control) {
    return control != nullptr ? control->Host() : nullptr;
}

} // namespace

// LostFocus goes to the control that was told GotFocus: a handler that moves the focus on, ahead of the news
// of its arrival, leaves no unpaired event behind. So does a window that reports its user's choice when it
// loses the keyboard, whose handler moves the focus on.
void Form::ChangeFocus(Control* target, bool tell_window) {
    if (target == mFocusHolder)
        return;
    const std::shared_ptr<Form> alive = weak_from_this().lock();
    Control* const before = std::exchange(mFocusHolder, target);
    if (tell_window)
        TakeWindowFocus();
    ShowDefaultLook(before);
    if (mFocusHolder != target)
        return;
    TellLeft();
    if (target == nullptr || mFocusHolder != target || mToldFocus == target)
        return;
    TellEntered(*target);
}

void Form::TellLeft() {
    if (Control* const left = std::exchange(mToldFocus, nullptr))
        left->Raise(left->LostFocus);
    if (mToldHost == nullptr || mToldHost == HostOf(mFocusHolder))
        return;
    Control* const left = std::exchange(mToldHost, nullptr);
    left->Raise(left->LostFocus);
}

void Form::TellEntered(Control& target) {
    if (Control* const host = target.Host(); host != nullptr && mToldHost != host) {
        mToldHost = host;
        host->Raise(host->GotFocus);
        if (mFocusHolder != &target || mToldFocus == &target)
            return;
    }
    mToldFocus = &target;
    target.Raise(target.GotFocus);
}

Control* Form::ActiveControl() const {
    Control* const host = HostOf(mFocusHolder);
    return host != nullptr ? host : mFocusHolder;
}

void Form::TakeWindowFocus() {
    if (!mPeer)
        return;
    if (mFocusHolder != nullptr && mFocusHolder->Peer() != nullptr)
        mFocusHolder->Peer()->TakeFocus();
    else
        mPeer->TakeFocus();
}

void Form::ShowDefaultLook(Control* before) {
    const auto is_button = [](const Control* control) {
        return control != nullptr && control->Kind() == ControlKind::CommandButton;
    };
    if (!is_button(before) && !is_button(mFocusHolder))
        return;
    const Control* const usual = DefaultButton();
    for (Control* const control : mAllControls)
        if (is_button(control) && (control == before || control == mFocusHolder || control == usual))
            control->Show(Property::Default);
}

void Form::LeaveIfUnable() {
    if (mFocusHolder != nullptr && !mFocusHolder->CanTakeFocus())
        ChangeFocus(NextStop(mFocusHolder, false), true);
}

Control* Form::NextStop(const Control* from, bool backward) const {
    return NextInTabOrder(mTabOrder, from, backward, [](const Control& control) { return control.IsStop(); });
}

bool Form::MayMoveFocus(const Control* target) {
    if (!InputEnabled())
        return false;
    Control* const holder = mFocusHolder;
    if (holder == nullptr || target == nullptr || target == holder || !target->CanTakeFocus())
        return true;
    const std::shared_ptr<Form> alive = weak_from_this().lock();
    bool refused = false;
    holder->Raise(holder->Validate, refused);
    Control* const host = holder->Host();
    if (!refused && host != nullptr && host != target && host != target->Host())
        host->Raise(host->Validate, refused);
    return !refused && !IsUnloaded();
}

void Form::FocusMoved(Control* target) {
    Control* const holder = target != nullptr ? target->FocusTarget() : nullptr;
    if (target == nullptr || holder != nullptr)
        ChangeFocus(holder, holder != target);
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
