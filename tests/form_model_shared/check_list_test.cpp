#include "tests/form_model_shared/entry_form.h"
#include "tests/form_model_shared/shown_form.h"

namespace kestrelmoor::tests {

namespace {

class FormCheckLists : public Shown<EntryForm> {
  protected:
    void SetUp() override {
        Shown<EntryForm>::SetUp();
        for (const char16_t* const name : {u"pear", u"apple", u"quince"})
            form->lstNames.AddItem(name);
        Seen();
    }
};

TEST_F(FormCheckLists, TurnTheMarkOfTheCurrentRowBySpace) {
    form->lstNames.SetListIndex(1);
    StartFrom(form->lstNames);
    hand->Press(key::kSpace);
    hand->Press(key::kSpace);
    EXPECT_EQ(Seen(), (Events{"lstNames ItemCheck 1 on", "lstNames ItemCheck 1 off"}));
}

TEST_F(FormCheckLists, WithoutACurrentRowLetSpaceBe) {
    StartFrom(form->lstNames);
    hand->Press(key::kSpace);
    EXPECT_EQ(Seen(), Events{});
}

TEST_F(FormCheckLists, TurnAMarkByAClickOnItBehindTheChoiceOfItsRow) {
    hand->ToggleRow(form->lstNames, 2);
    EXPECT_EQ(Seen(), (Events{"txtDays LostFocus to lstNames", "lstNames GotFocus", "lstNames Click 2",
                              "lstNames ItemCheck 2 on"}));
    hand->ToggleRow(form->lstNames, 0);
    hand->ToggleRow(form->lstNames, 2);
    EXPECT_EQ(Seen(), (Events{"lstNames Click 0", "lstNames ItemCheck 0 on", "lstNames Click 2",
                              "lstNames ItemCheck 2 off"}));
}

TEST_F(FormCheckLists, AClickOnTheTextOnlyChooses) {
    StartFrom(form->lstNames);
    hand->ChooseRow(form->lstNames, 1);
    EXPECT_EQ(Seen(), (Events{"lstNames Click 1"}));
    EXPECT_FALSE(form->lstNames.Selected(1));
}

TEST_F(FormCheckLists, AMarkSetByTheProgramIsToldOnceAndOnlyWhereItDiffers) {
    form->lstNames.SetSelected(0, true);
    form->lstNames.SetSelected(0, true);
    EXPECT_EQ(Seen(), (Events{"lstNames ItemCheck 0 on"}));
}

TEST_F(FormCheckLists, DisabledTurnNoMark) {
    form->lstNames.SetEnabled(false);
    hand->ToggleRow(form->lstNames, 0);
    EXPECT_EQ(Seen(), Events{});
}

TEST_F(FormCheckLists, AHandlerThatChoosesARowAsTheListIsEnteredIsHeard) {
    form->On("lstNames GotFocus", [this] { form->lstNames.SetListIndex(0); });
    StartFrom(form->txtDays);
    hand->Press(key::kTab);
    hand->Press(key::kSpace);
    EXPECT_EQ(Seen(), (Events{"txtDays LostFocus to lstNames", "lstNames GotFocus", "lstNames Click 0",
                              "lstNames ItemCheck 0 on"}));
}

TEST_F(FormCheckLists, GoToTheRowThatALetterBegins) {
    StartFrom(form->lstNames);
    hand->Type(u"q");
    hand->Press(key::kSpace);
    EXPECT_EQ(Seen(), (Events{"lstNames Click 2", "lstNames ItemCheck 2 on"}));
}

TEST_F(FormCheckLists, MayUnloadTheFormAsAMarkIsTurned) {
    form->On("lstNames ItemCheck 0 on", [this] { form->Unload(); });
    StartFrom(form->lstNames);
    hand->ToggleRow(form->lstNames, 0);
    EXPECT_EQ(Seen(), (Events{"lstNames Click 0", "lstNames ItemCheck 0 on", "Unload", "ucEntry Hide"}));
}

class FormDropDownLists : public Shown<EntryForm> {
  protected:
    void SetUp() override {
        Shown<EntryForm>::SetUp();
        for (const char16_t* const name : {u"Welsh", u"Danish", u"Irish"})
            form->cbTongue.AddItem(name);
        StartFrom(form->cbTongue);
    }
};

TEST_F(FormDropDownLists, TellTheChoiceByArrowsAndByLetter) {
    hand->Press(key::kDown);
    hand->Press(key::kDown);
    hand->Type(u"w");
    hand->Press(key::kHome);
    EXPECT_EQ(Seen(),
              (Events{"cbTongue Click 0", "cbTongue Click 1", "cbTongue Click 2", "cbTongue Click 0"}));
    EXPECT_EQ(form->cbTongue.List(0), u"Danish");
}

TEST_F(FormDropDownLists, GiveEachRowItsNumberAtTheIndexOfItsComing) {
    form->cbTongue.AddItem(u"Faroese");
    EXPECT_EQ(form->cbTongue.NewIndex(), 1);
    form->cbTongue.SetItemData(form->cbTongue.NewIndex(), 1080);
    form->cbTongue.AddItem(u"Basque");
    EXPECT_EQ(form->cbTongue.ItemData(2), 1080);
    EXPECT_EQ(form->cbTongue.List(2), u"Faroese");
}

TEST_F(FormDropDownLists, LeaveEnterToTheDefaultButtonWhileClosed) {
    hand->Press(key::kReturn);
    EXPECT_EQ(Seen(), (Events{"cmdOK Click"}));
}

class FormNumbers : public Shown<EntryForm> {
  protected:
    void SetUp() override {
        Shown<EntryForm>::SetUp();
        form->txtDays.KeyPress = [](int& character) {
            if (character != key::kBack && (character < '0' || character > '9'))
                character = 0;
        };
        form->txtDays.Validate = [this](bool& refused) { refused = form->txtDays.Text() == u"100"; };
        hand->Type(u"1x0-0");
        Seen();
    }
};

TEST_F(FormNumbers, ThatAreRefusedKeepTheFocusAgainstTabMouseAndAccelerator) {
    hand->Press(key::kTab);
    hand->ClickOn(form->ucEntry.cmdPick);
    hand->ToggleRow(form->lstNames, 0);
    hand->Press(u'A', key::kAltMask);
    EXPECT_EQ(Seen(), Events{});
    EXPECT_EQ(form->txtDays.Text(), u"100");
    EXPECT_EQ(form->ActiveControl(), &form->txtDays);
}

TEST_F(FormNumbers, ThatAreRefusedDontKeepEnterFromTheDefaultButton) {
    hand->Press(key::kReturn);
    EXPECT_EQ(Seen(), (Events{"cmdOK Click"}));
}

TEST_F(FormNumbers, ThatAreTakenLetTheFocusGo) {
    hand->Press(key::kBack);
    hand->Press(key::kTab);
    EXPECT_EQ(Seen(), (Events{"txtDays Change '10'", "txtDays LostFocus to lstNames", "lstNames GotFocus"}));
}

} // namespace

} // namespace kestrelmoor::tests
