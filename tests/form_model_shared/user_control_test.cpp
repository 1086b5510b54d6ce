#include "tests/form_model_shared/entry_form.h"
#include "tests/form_model_shared/shown_form.h"

namespace kestrelmoor::tests {

namespace {

class FormUserControls : public Shown<EntryForm> {};

TEST_F(FormUserControls, AreOneControlOfTheForm) {
    EXPECT_EQ(form->Controls().size(), 8U);
    EXPECT_EQ(form->AllControls().size(), 10U);
    EXPECT_EQ(form->ucEntry.txtEntry.Host(), &form->ucEntry);
    EXPECT_EQ(form->lstNames.Host(), nullptr);
    EXPECT_EQ(&form->ucEntry.txtEntry.Parent(), form.get());
}

TEST_F(FormUserControls, AreEnteredLeftAndWalkedThroughByTabAtTheirPlace) {
    StartFrom(form->lstNames);
    for (int count = 0; count < 3; ++count)
        hand->Press(key::kTab);
    EXPECT_EQ(Seen(),
              (Events{"lstNames LostFocus to ucEntry", "ucEntry GotFocus", "txtEntry GotFocus",
                      "txtEntry LostFocus to ucEntry", "cmdPick GotFocus", "cmdPick LostFocus to cbTongue",
                      "ucEntry LostFocus to cbTongue", "cbTongue GotFocus"}));
}

TEST_F(FormUserControls, AreEnteredFromBehindAtTheirLastPart) {
    StartFrom(form->cbTongue);
    hand->Press(key::kTab, key::kShiftMask);
    EXPECT_EQ(Seen(), (Events{"cbTongue LostFocus to ucEntry", "ucEntry GotFocus", "cmdPick GotFocus"}));
    hand->Press(key::kTab, key::kShiftMask);
    hand->Press(key::kTab, key::kShiftMask);
    EXPECT_EQ(Seen(),
              (Events{"cmdPick LostFocus to ucEntry", "txtEntry GotFocus", "txtEntry LostFocus to lstNames",
                      "ucEntry LostFocus to lstNames", "lstNames GotFocus"}));
}

TEST_F(FormUserControls, TakeACallForTheFocusToTheFirstPartInTabOrder) {
    form->ucEntry.SetFocus();
    EXPECT_EQ(Seen(), (Events{"txtDays LostFocus to ucEntry", "ucEntry GotFocus", "txtEntry GotFocus"}));
    EXPECT_EQ(form->ActiveControl(), &form->ucEntry);
    EXPECT_EQ(form->FocusHolder(), &form->ucEntry.txtEntry);
    EXPECT_EQ(form->ucEntry.ActiveConstituent(), &form->ucEntry.txtEntry);
}

TEST_F(FormUserControls, HandTheCallOnWhereTheFirstPartCantTakeIt) {
    form->ucEntry.txtEntry.SetEnabled(false);
    form->ucEntry.SetFocus();
    EXPECT_EQ(form->FocusHolder(), &form->ucEntry.cmdPick);
}

TEST_F(FormUserControls, LeaveTheFocusWhereItIsInThem) {
    StartFrom(form->ucEntry.cmdPick);
    form->ucEntry.SetFocus();
    EXPECT_EQ(Seen(), Events{});
    EXPECT_EQ(form->FocusHolder(), &form->ucEntry.cmdPick);
}

TEST_F(FormUserControls, AreEnteredByAPressOnAPart) {
    hand->ClickOn(form->ucEntry.cmdPick);
    EXPECT_EQ(Seen(), (Events{"txtDays LostFocus to ucEntry", "ucEntry GotFocus", "cmdPick GotFocus",
                              "cmdPick Click"}));
}

TEST_F(FormUserControls, ArePressedInTheMiddleOnTheirPartThere) {
    hand->ClickOn(form->ucEntry);
    EXPECT_EQ(form->FocusHolder(), &form->ucEntry.txtEntry);
}

TEST_F(FormUserControls, TypedIntoTellTheChangeOfTheirPart) {
    StartFrom(form->ucEntry);
    hand->Type(u"ab");
    EXPECT_EQ(Seen(), (Events{"txtEntry Change 'a'", "txtEntry Change 'ab'"}));
}

TEST_F(FormUserControls, LeaveEnterAndEscapeToTheForm) {
    StartFrom(form->ucEntry);
    hand->Press(key::kReturn);
    hand->Press(key::kEscape);
    EXPECT_EQ(Seen(), (Events{"cmdOK Click", "cmdCancel Click"}));
    EXPECT_EQ(form->ActiveControl(), &form->ucEntry);
}

TEST_F(FormUserControls, HaveEnterPressTheirButtonThatHasTheFocus) {
    StartFrom(form->ucEntry.cmdPick);
    hand->Press(key::kReturn);
    EXPECT_EQ(Seen(), (Events{"cmdPick Click"}));
    EXPECT_TRUE(form->ucEntry.cmdPick.LooksDefault());
    EXPECT_FALSE(form->cmdOK.LooksDefault());
}

TEST_F(FormUserControls, HaveAcceleratorsOfTheirParts) {
    hand->Press(u'I', key::kAltMask);
    EXPECT_EQ(Seen(), (Events{"txtDays LostFocus to ucEntry", "ucEntry GotFocus", "cmdPick GotFocus",
                              "cmdPick Click"}));
}

TEST_F(FormUserControls, HiddenWithTheFocusHandItOn) {
    StartFrom(form->ucEntry);
    form->ucEntry.SetVisible(false);
    EXPECT_EQ(Seen(), (Events{"ucEntry Hide", "txtEntry LostFocus to cbTongue",
                              "ucEntry LostFocus to cbTongue", "cbTongue GotFocus"}));
}

TEST_F(FormUserControls, HiddenOrDisabledTakeNoFocus) {
    form->ucEntry.SetEnabled(false);
    StartFrom(form->lstNames);
    hand->Press(key::kTab);
    hand->ClickOn(form->ucEntry.txtEntry);
    EXPECT_EQ(form->ActiveControl(), &form->cbTongue);
    form->ucEntry.SetEnabled(true);
    form->ucEntry.SetVisible(false);
    StartFrom(form->lstNames);
    hand->Press(key::kTab);
    EXPECT_EQ(form->ActiveControl(), &form->cbTongue);
}

TEST_F(FormUserControls, ThatAreNoTabStopArePassedOver) {
    form->ucEntry.SetTabStop(false);
    StartFrom(form->lstNames);
    hand->Press(key::kTab);
    EXPECT_EQ(form->ActiveControl(), &form->cbTongue);
}

TEST_F(FormUserControls, TellOnceThatTheyAreHidden) {
    form->ucEntry.SetVisible(false);
    form->ucEntry.SetVisible(false);
    form->fraNames.SetVisible(false);
    EXPECT_EQ(Seen(), (Events{"ucEntry Hide"}));
    form->fraNames.SetVisible(true);
    form->ucEntry.SetVisible(true);
    EXPECT_EQ(Seen(), Events{});
}

TEST_F(FormUserControls, AreHiddenWithTheirFrame) {
    form->fraNames.SetVisible(false);
    EXPECT_EQ(Seen(), (Events{"ucEntry Hide"}));
}

TEST_F(FormUserControls, AreHiddenWithTheirForm) {
    form->Unload();
    EXPECT_EQ(Seen(), (Events{"Unload", "ucEntry Hide"}));
}

TEST_F(FormUserControls, TellAnotherSizeAndNoOtherPlace) {
    form->ucEntry.Move(300, 1200, 3000, 300);
    EXPECT_EQ(Seen(), Events{});
    form->ucEntry.SetWidth(2400);
    form->ucEntry.SetHeight(345);
    EXPECT_EQ(Seen(), (Events{"ucEntry Resize", "ucEntry Resize"}));
}

TEST_F(FormUserControls, TellTheirFirstSizeAheadOfLoad) {
    const auto other = Application::Current().Make<EntryForm>();
    other->Load();
    EXPECT_EQ(other->Take(), (Events{"ucEntry Resize", "Load"}));
}

TEST_F(FormUserControls, HoldTheFocusByTheirPartsValidateAndByTheirOwn) {
    StartFrom(form->ucEntry);
    form->ucEntry.txtEntry.Validate = [this](bool& refused) {
        refused = form->ucEntry.txtEntry.Text() == u"";
    };
    form->ucEntry.Validate = [this](bool& refused) {
        form->Note("Validate");
        refused = form->ucEntry.txtEntry.Text() == u"a";
    };
    hand->Press(key::kTab);
    EXPECT_EQ(form->FocusHolder(), &form->ucEntry.txtEntry);
    hand->Type(u"a");
    Seen();
    hand->Press(key::kTab);
    EXPECT_EQ(form->FocusHolder(), &form->ucEntry.cmdPick);
    EXPECT_EQ(Seen(), (Events{"txtEntry LostFocus to ucEntry", "cmdPick GotFocus"}));
    hand->Press(key::kTab);
    EXPECT_EQ(Seen(), (Events{"Validate"}));
    EXPECT_EQ(form->FocusHolder(), &form->ucEntry.cmdPick);
}

TEST_F(FormUserControls, AHandlerThatTakesTheFocusBackIntoThemLeavesPairedEvents) {
    StartFrom(form->ucEntry);
    form->On("txtEntry LostFocus to cbTongue", [this] { form->ucEntry.cmdPick.SetFocus(); });
    form->cbTongue.SetFocus();
    EXPECT_EQ(Seen(), (Events{"txtEntry LostFocus to cbTongue", "cmdPick GotFocus"}));
    form->cmdAdd.SetFocus();
    EXPECT_EQ(Seen(),
              (Events{"cmdPick LostFocus to cmdAdd", "ucEntry LostFocus to cmdAdd", "cmdAdd GotFocus"}));
}

TEST_F(FormUserControls, AHandlerThatMovesTheFocusOnAsTheyAreEnteredLeavesPairedEvents) {
    form->On("ucEntry GotFocus", [this] { form->cmdAdd.SetFocus(); });
    form->ucEntry.SetFocus();
    EXPECT_EQ(Seen(), (Events{"txtDays LostFocus to ucEntry", "ucEntry GotFocus",
                              "ucEntry LostFocus to cmdAdd", "cmdAdd GotFocus"}));
}

TEST_F(FormUserControls, AnEntryThatClosesAsItIsLeftOpensAnewBehindTheClick) {
    StartFrom(form->ucEntry);
    form->On("ucEntry LostFocus to cmdAdd", [this] { form->ucEntry.SetVisible(false); });
    form->On("cmdAdd Click", [this] {
        form->ucEntry.SetVisible(true);
        form->ucEntry.SetFocus();
    });
    hand->ClickOn(form->cmdAdd);
    EXPECT_EQ(Seen(), (Events{"txtEntry LostFocus to cmdAdd", "ucEntry LostFocus to cmdAdd", "ucEntry Hide",
                              "cmdAdd GotFocus", "cmdAdd Click", "cmdAdd LostFocus to ucEntry",
                              "ucEntry GotFocus", "txtEntry GotFocus"}));
    hand->Type(u"x");
    EXPECT_EQ(form->ucEntry.txtEntry.Text(), u"x");
}

} // namespace

} // namespace kestrelmoor::tests
