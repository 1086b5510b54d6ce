#include "tests/windows/form_windows/windows_of_form.h"

namespace kestrelmoor::tests {

namespace {

class FormWindowLife : public ShownForm {
  protected:
    /// In the first form's handler, and once that has returned.
    void ClickToOpenSecond() {
        form->On("cmdMore Click", [this] {
            second->Show(true, form.get());
            first_in_handler = ::IsWindow(first_window);
            second_in_handler = ::IsWindow(second_window);
        });
        hand->ClickOn(form->cmdMore);
    }
    void AtSecond(std::function<void()> action) {
        hand->Later([this, action] {
            second_window = WindowOf(*second);
            action();
        });
    }

    std::shared_ptr<RecordedForm> second = Application::Current().Make<RecordedForm>();
    HWND first_window = nullptr;
    HWND second_window = nullptr;
    bool first_in_handler = false;
    bool second_in_handler = true;

    void SetUp() override {
        ShownForm::SetUp();
        first_window = WindowOf(*form);
    }
};

TEST_F(FormWindowLife, OfAModalFormEndsBeforeTheHandlerThatShowedIt) {
    AtSecond([this] { hand->CloseWindow(*second); });
    ClickToOpenSecond();
    EXPECT_TRUE(first_in_handler);
    EXPECT_FALSE(second_in_handler);
}

TEST_F(FormWindowLife, OfAModalFormEndsThereAlsoAfterItsOwnHandlerUnloadedIt) {
    bool second_in_its_handler = false;
    second->On("cmdMore Click", [&] {
        second->Unload();
        second_in_its_handler = ::IsWindow(second_window);
    });
    AtSecond([this] { hand->ClickOn(second->cmdMore); });
    ClickToOpenSecond();
    EXPECT_TRUE(second_in_its_handler);
    EXPECT_FALSE(second_in_handler);
}

TEST_F(FormWindowLife, LastsToTheEndOfTheHandlerBelowAModalForm) {
    AtSecond([this] {
        form->Unload();
        second->Unload();
    });
    ClickToOpenSecond();
    EXPECT_TRUE(first_in_handler);
    EXPECT_FALSE(::IsWindow(first_window));
}

} // namespace

} // namespace kestrelmoor::tests
