#include "runtime/forms/application.h"
#include "runtime/forms/user_control.h"

#include <utility>

namespace kestrelmoor {

void Form::Load() {
    if (mState != State::Made)
        return;
    const std::shared_ptr<Form> alive = weak_from_this().lock();
    mState = State::Loaded;
    Application::Current().mForms.push_back(shared_from_this());
    try {
        MakePeers();
        TellSizes();
        Form_Load();
    } catch (...) {
        if (IsLoaded())
            Disappear();
        throw;
    }
}

void Form::MakePeers() {
    Desktop* const desktop = Application::Current().CurrentDesktop();
    if (desktop == nullptr)
        return;
    mPeer = desktop->MakeFormPeer(*this);
    if (!mPeer)
        return;
    for (Control* const control : mAllControls)
        control->SetPeer(mPeer->MakeControlPeer(*control));
}

// A user control has laid its constituents out for the size of its own design.
void Form::TellSizes() {
    for (const auto& control : mControls)
        if (auto* const user_control = dynamic_cast<UserControl*>(control.get()))
            user_control->Raise(user_control->Resize);
}

void Form::TellHidden(const Control* gone) {
    for (const auto& control : mControls)
        if (auto* const user_control = dynamic_cast<UserControl*>(control.get()))
            user_control->HiddenWith(gone);
}

void Form::Show(bool modal, Form* owner) {
    if (modal && owner == nullptr)
        owner = Application::Current().ActiveForm();
    if (owner != nullptr && owner != this)
        mOwner = owner->weak_from_this();
    Load();
    if (!IsLoaded())
        return;
    const std::shared_ptr<Form> alive = weak_from_this().lock();
    if (modal && !mModal)
        HoldOffOthers();
    Appear();
    if (modal)
        Application::Current().RunModal(*this);
}

void Form::Appear() {
    if (!mVisible) {
        mVisible = true;
        Application::Current().SetActiveForm(this);
        ShowProperty(Property::Visible);
    }
    if (mFocusHolder == nullptr)
        ChangeFocus(NextStop(nullptr, false), true);
}

void Form::Unload() {
    if (!IsLoaded() || mUnloading)
        return;
    struct Unloading {
        bool& flag;
        ~Unloading() { flag = false; }
    };
    const std::shared_ptr<Form> alive = weak_from_this().lock();
    mUnloading = true;
    const Unloading unloading{mUnloading};
    Form_Unload();
    TellHidden(nullptr);
    Disappear();
}

void Form::Disappear() {
    Application& application = Application::Current();
    mState = State::Unloaded;
    mFocusHolder = nullptr;
    LetOthersOn();
    mVisible = false;
    ShowProperty(Property::Visible);
    EndPeers();
    std::erase_if(application.mForms, [this](const auto& form) { return form.get() == this; });
    if (application.ActiveForm() == this)
        application.ActivateSuccessor(*this);
}

void Form::EndPeers() {
    for (auto control = mAllControls.rbegin(); control != mAllControls.rend(); ++control)
        (*control)->SetPeer(nullptr);
    mPeer.reset();
}

void Form::HoldOffOthers() {
    mModal = true;
    for (const auto& form : Application::Current().Forms()) {
        if (form.get() == this)
            continue;
        mHeldOff.push_back(form);
        form->SetModalInFront(form->mModalInFront + 1);
    }
}

void Form::LetOthersOn() {
    mModal = false;
    for (const auto& held : std::exchange(mHeldOff, {}))
        if (const auto form = held.lock())
            form->SetModalInFront(form->mModalInFront - 1);
}

void Form::SetModalInFront(int count) {
    const bool before = InputEnabled();
    mModalInFront = count;
    if (before != InputEnabled())
        ShowProperty(Property::Enabled);
}

} // namespace kestrelmoor
