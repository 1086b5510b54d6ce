#include "tests/native/rules/window_rules.h"

#include "platform/practice/world/world.h"
#include "runtime/forms/application.h"
#include "shell/program_state.h"
#include "tests/native/rules/form_rules.h"
#include "tests/native/rules/frmAbout_rules.h"

#include <algorithm>

namespace kestrelmoor::tests {

namespace {

/// The windows stand over each other in one order, each but the front one held off by the next.
void CheckOrder(Findings& found) {
    constexpr StringView kOrder[] = {u"frmPass", u"frmSettings", u"frmAbout"};
    const auto& forms = Application::Current().Forms();
    found.Expect(forms.size() <= std::size(kOrder), "a window of each kind at most");
    for (std::size_t i = 0; i < std::min(forms.size(), std::size(kOrder)); ++i) {
        found.Expect(forms[i]->Name() == kOrder[i], "no window without the one below it", forms[i]->Name());
        found.Expect(forms[i]->Visible(), "a loaded window is shown", forms[i]->Name());
        found.Expect(forms[i]->InputEnabled() == (i + 1 == forms.size()), "the front window takes the input",
                     forms[i]->Name());
    }
    found.Expect(forms.empty() || Application::Current().ActiveForm() == forms.back().get(),
                 "the last window opened is in front");
}

} // namespace

void WindowRules::CheckHooks(Findings& found) {
    const auto& forms = Application::Current().Forms();
    found.Expect(gPassFormCount == (forms.empty() ? 0 : 1), "password windows are counted");
    const std::size_t asked = practice::TheWorld().calls.Count("SetWindowsHookExW");
    if (forms.empty() || gKeyboardCues) {
        found.Expect(gKeyboardHook == 0 && gMouseHook == 0, "no hook without need");
        mHooks.reset();
    } else if (!mHooks || mHooks->window.lock() != forms.front()) {
        const bool refused = asked >= (asked < mHooksAsked ? 0 : mHooksAsked) + 2;
        const bool handed_on = mHooks && gKeyboardHook == mHooks->keyboard && gMouseHook == mHooks->mouse;
        found.Expect((gKeyboardHook != 0 && gMouseHook != 0) || refused || handed_on,
                     "the hooks of the cues");
        mHooks = {forms.front(), gKeyboardHook, gMouseHook};
    } else {
        found.Expect(gKeyboardHook == mHooks->keyboard && gMouseHook == mHooks->mouse,
                     "the hooks of the cues stay");
    }
    mHooksAsked = asked;
}

void WindowRules::LookAt(const Form& form, Findings& found) {
    if (form.Name() == u"frmPass") {
        if (!mPassword || !mPassword->IsFor(form))
            mPassword.emplace(form);
        mPassword->Look(form, found);
    } else if (form.Name() == u"frmSettings") {
        if (!mSettings || !mSettings->IsFor(form))
            mSettings.emplace(form, mInputsSeen);
        mSettings->Look(form, found);
    } else {
        CheckAboutWindow(form, found);
    }
}

bool WindowRules::KeepsPassword(const Form& form) const {
    return mPassword && mPassword->KeepsPassword(form);
}

std::vector<std::string> WindowRules::Look() {
    Findings found;
    CheckOrder(found);
    CheckHooks(found);
    for (const auto& form : Application::Current().Forms())
        LookAt(*form, found);
    return found.Broken();
}

} // namespace kestrelmoor::tests
