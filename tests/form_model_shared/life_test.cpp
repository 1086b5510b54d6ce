#include "tests/form_model_shared/shown_form.h"

namespace kestrelmoor::tests {

namespace {

class FormLife : public ShownForm {
  protected:
    std::shared_ptr<RecordedForm> second = Application::Current().Make<RecordedForm>();
};

TEST_F(FormLife, TheCloseBoxUnloads) {
    hand->CloseWindow(*form);
    EXPECT_EQ(Seen(), (Events{"Unload"}));
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_TRUE(Application::Current().Forms().empty());
}

TEST_F(FormLife, AFormUnloadedInItsHandlerRaisesNothingAfterwards) {
    form->On("cmdMore Click", [this] {
        form->Unload();
        form->txtFirst.SetText(u"late");
        form->chkMark.SetValue(1);
        form->cmdOK.SetFocus();
        form->Note("end of handler");
    });
    hand->ClickOn(form->cmdMore);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to cmdMore", "cmdMore GotFocus", "cmdMore Click", "Unload",
                              "end of handler"}));
    EXPECT_EQ(form->ActiveControl(), nullptr);
    EXPECT_EQ(form->txtFirst.Text(), u"late");
}

TEST_F(FormLife, AFormUnloadedAsItsControlLosesTheFocusSwallowsTheRest) {
    form->On("txtFirst LostFocus to cmdMore", [this] { form->Unload(); });
    hand->ClickOn(form->cmdMore);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to cmdMore", "Unload"}));
}

TEST_F(FormLife, AFormUnloadedByAKeyLetsNoCharacterThrough) {
    form->txtFirst.KeyDown = [this](int&, int) { form->Unload(); };
    hand->Type(u"ab");
    EXPECT_EQ(Seen(), (Events{"Unload"}));
    EXPECT_EQ(form->txtFirst.Text(), u"");
}

TEST_F(FormLife, AHandlerThatPumpsLearnsThatItsFormIsUnloaded) {
    form->On("cmdMore Click", [this] {
        hand->Later([this] { form->Unload(); });
        Application::Current().DoEvents();
        form->Note(form->IsUnloaded() ? "gone" : "there");
    });
    hand->ClickOn(form->cmdMore);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to cmdMore", "cmdMore GotFocus", "cmdMore Click", "Unload",
                              "gone"}));
}

TEST_F(FormLife, AModalFormHoldsItsCallerUntilItIsUnloaded) {
    form->On("cmdMore Click", [this] {
        second->Show(true, form.get());
        form->Note("back");
    });
    hand->Later([this] {
        form->Note(form->InputEnabled() ? "first on" : "first off");
        form->Note(second->InputEnabled() ? "second on" : "second off");
        second->On("Unload", [this] { form->Note("second Unload"); });
        hand->ClickOn(form->cmdOK);
        hand->CloseWindow(*second);
    });
    hand->ClickOn(form->cmdMore);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to cmdMore", "cmdMore GotFocus", "cmdMore Click",
                              "first off", "second on", "second Unload", "back"}));
    EXPECT_TRUE(form->InputEnabled());
    EXPECT_EQ(Application::Current().ActiveForm(), form.get());
}

TEST_F(FormLife, TheFocusStaysInTheFormBehindAModalOne) {
    form->On("cmdMore Click", [this] { second->Show(true, form.get()); });
    hand->Later([this] {
        hand->Type(u"a");
        hand->CloseWindow(*second);
    });
    hand->ClickOn(form->cmdMore);
    EXPECT_EQ(second->Take(), (Events{"Load", "txtFirst GotFocus", "txtFirst Change 'a'", "Unload"}));
    EXPECT_EQ(form->ActiveControl(), &form->cmdMore);
    hand->Press(key::kTab);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to cmdMore", "cmdMore GotFocus", "cmdMore Click",
                              "cmdMore LostFocus to txtFirst", "txtFirst GotFocus"}));
}

TEST_F(FormLife, AWindowMayCloseBeforeItsSuccessorOpens) {
    form->On("cmdMore Click", [this] {
        form->Unload();
        second->Show();
    });
    hand->Later([this] { hand->ClickOn(form->cmdMore); });
    hand->Later([this] { hand->CloseWindow(*second); });
    Application::Current().Run();
    EXPECT_EQ(second->Take(), (Events{"Load", "txtFirst GotFocus", "Unload"}));
}

} // namespace

} // namespace kestrelmoor::tests
