#include "runtime/forms/application.h"

#include <algorithm>

namespace kestrelmoor {

Application& Application::Current() {
    static Application application;
    return application;
}

void Application::DoEvents() {
    if (mDesktop != nullptr)
        mDesktop->PumpEvents();
}

int Application::CompareRows(StringView a, StringView b) const {
    return mDesktop != nullptr ? mDesktop->CompareRows(a, b) : LowerAscii(a).compare(LowerAscii(b));
}

void Application::Run() {
    while (!mForms.empty() && mDesktop != nullptr && mDesktop->WaitForEvent()) {
    }
}

void Application::UnloadAll() {
    const std::vector<std::shared_ptr<Form>> loaded = mForms;
    for (auto form = loaded.rbegin(); form != loaded.rend(); ++form)
        (*form)->Unload();
}

void Application::RunModal(const Form& form) {
    while (form.IsLoaded() && mDesktop != nullptr && mDesktop->WaitForEvent()) {
    }
}

void Application::ActivateSuccessor(const Form& gone) {
    const auto can_follow = [](const Form& form) { return form.Visible() && form.InputEnabled(); };
    mActiveForm = gone.Owner();
    if (mActiveForm != nullptr && can_follow(*mActiveForm))
        return;
    const auto last = std::find_if(mForms.rbegin(), mForms.rend(),
                                   [&can_follow](const auto& form) { return can_follow(*form); });
    mActiveForm = last == mForms.rend() ? nullptr : last->get();
}

} // namespace kestrelmoor
