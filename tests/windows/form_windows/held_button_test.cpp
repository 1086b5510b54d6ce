#include "tests/windows/form_windows/windows_of_form.h"

namespace kestrelmoor::tests {

namespace {

WNDPROC behind = nullptr;

/// Windows clicks a button that the space bar holds down when it loses the keyboard; the tests' desktop does
/// not.
LRESULT CALLBACK ClickWhenLeft(HWND window, UINT message, WPARAM wide, LPARAM parameter) {
    if (message == WM_KILLFOCUS)
        ::SendMessageW(::GetParent(window), WM_COMMAND, MAKEWPARAM(0, BN_CLICKED),
                       reinterpret_cast<LPARAM>(window));
    return ::CallWindowProcW(behind, window, message, wide, parameter);
}

void Hold(CommandButton& button) {
    button.SetFocus();
    behind = reinterpret_cast<WNDPROC>(
        ::SetWindowLongW(WindowOf(button), GWL_WNDPROC, reinterpret_cast<LONG>(&ClickWhenLeft)));
}

class FormHeldButton : public ShownForm {
  protected:
    void SetUp() override {
        ShownForm::SetUp();
        Hold(form->cmdOK);
        Seen();
    }
};

TEST_F(FormHeldButton, IsClickedWhenTabHasTakenTheFocusFromIt) {
    hand->Press(key::kTab);
    EXPECT_EQ(Seen(), (Events{"cmdOK LostFocus to cmdCancel", "cmdCancel GotFocus", "cmdOK Click"}));
}

TEST_F(FormHeldButton, MayEndItsFormWhenTabHasTakenTheFocusFromIt) {
    form->On("cmdOK Click", [this] { form->Unload(); });
    hand->Press(key::kTab);
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(Seen(),
              (Events{"cmdOK LostFocus to cmdCancel", "cmdCancel GotFocus", "cmdOK Click", "Unload"}));
}

TEST_F(FormHeldButton, IsNotClickedByTheEndOfItsForm) {
    const auto second = Application::Current().Make<RecordedForm>();
    hand->Later([&] {
        Hold(second->cmdOK);
        second->Take();
        second->Unload();
    });
    second->Show(true, form.get());
    EXPECT_EQ(second->Take(), (Events{"Unload"}));
}

} // namespace

} // namespace kestrelmoor::tests
