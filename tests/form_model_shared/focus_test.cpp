#include "tests/form_model_shared/shown_form.h"

namespace kestrelmoor::tests {

namespace {

class FormFocus : public ShownForm {};

TEST_F(FormFocus, ShowingLoadsAndGoesToTheFirstControlInTabOrder) {
    const auto other = Application::Current().Make<RecordedForm>();
    other->Show();
    hand->Settle();
    EXPECT_EQ(other->Take(), (Events{"Load", "txtFirst GotFocus"}));
    EXPECT_EQ(other->ActiveControl(), &other->txtFirst);
}

TEST_F(FormFocus, TabGoesOnInTabOrderAndRoundTheEnd) {
    for (int count = 0; count < 8; ++count)
        hand->Press(key::kTab);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to txtSecond", "txtSecond GotFocus", //
                              "txtSecond LostFocus to chkMark", "chkMark GotFocus",    //
                              "chkMark LostFocus to txtInside", "txtInside GotFocus",  //
                              "txtInside LostFocus to lstRows", "lstRows GotFocus",    //
                              "lstRows LostFocus to cmdOK", "cmdOK GotFocus",          //
                              "cmdOK LostFocus to cmdCancel", "cmdCancel GotFocus",    //
                              "cmdCancel LostFocus to cmdMore", "cmdMore GotFocus",    //
                              "cmdMore LostFocus to txtFirst", "txtFirst GotFocus"}));
}

TEST_F(FormFocus, ShiftTabGoesBackRoundTheBeginning) {
    hand->Press(key::kTab, key::kShiftMask);
    hand->Press(key::kTab, key::kShiftMask);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to cmdMore", "cmdMore GotFocus",
                              "cmdMore LostFocus to cmdCancel", "cmdCancel GotFocus"}));
}

TEST_F(FormFocus, TabPassesOverControlsThatAreHiddenDisabledOrNoStop) {
    form->txtSecond.SetEnabled(false);
    form->chkMark.SetVisible(false);
    form->fraGroup.SetEnabled(false);
    form->lstRows.SetTabStop(false);
    hand->Press(key::kTab);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to cmdOK", "cmdOK GotFocus"}));
}

TEST_F(FormFocus, AControlThatIsNoStopTakesTheFocusByMouseAndByCall) {
    form->txtSecond.SetTabStop(false);
    hand->ClickOn(form->txtSecond);
    EXPECT_EQ(form->ActiveControl(), &form->txtSecond);
    StartFrom(form->cmdOK);
    form->txtSecond.SetFocus();
    EXPECT_EQ(Seen(), (Events{"cmdOK LostFocus to txtSecond", "txtSecond GotFocus"}));
}

TEST_F(FormFocus, APressOfTheMouseMovesTheFocusAheadOfTheClick) {
    hand->ClickOn(form->cmdMore);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to cmdMore", "cmdMore GotFocus", "cmdMore Click"}));
}

TEST_F(FormFocus, APressOnALabelOrOnADisabledButtonLeavesTheFocus) {
    form->cmdMore.SetEnabled(false);
    hand->ClickOn(form->Find(u"lblSecond"));
    hand->ClickOn(form->cmdMore);
    EXPECT_EQ(Seen(), Events{});
    EXPECT_EQ(form->ActiveControl(), &form->txtFirst);
}

TEST_F(FormFocus, ACallForTheHolderRaisesNothing) {
    form->txtFirst.SetFocus();
    EXPECT_EQ(Seen(), Events{});
}

TEST_F(FormFocus, HidingTheHolderMovesItOnInTabOrder) {
    form->txtFirst.SetVisible(false);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to txtSecond", "txtSecond GotFocus"}));
}

TEST_F(FormFocus, DisablingTheHolderMovesItOnInTabOrder) {
    StartFrom(form->cmdMore);
    form->cmdMore.SetEnabled(false);
    EXPECT_EQ(Seen(), (Events{"cmdMore LostFocus to txtFirst", "txtFirst GotFocus"}));
}

TEST_F(FormFocus, HidingTheFrameAroundTheHolderMovesItOn) {
    StartFrom(form->txtInside);
    form->fraGroup.SetVisible(false);
    EXPECT_EQ(Seen(), (Events{"txtInside LostFocus to lstRows", "lstRows GotFocus"}));
}

TEST_F(FormFocus, WithNoControlLeftKeysGoToTheFormAlone) {
    for (const auto& control : form->Controls())
        if (control->Name() != u"txtFirst")
            control->SetEnabled(false);
    form->txtFirst.SetEnabled(false);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to none"}));
    EXPECT_EQ(form->ActiveControl(), nullptr);
    hand->Press(key::kF1);
    hand->Type(u"a");
    hand->Press(key::kTab);
    EXPECT_EQ(Seen(), (Events{"KeyDown F1, shift 0"}));
}

TEST_F(FormFocus, FromNoControlTabGoesToTheFirst) {
    for (const auto& control : form->Controls())
        control->SetEnabled(false);
    for (const auto& control : form->Controls())
        control->SetEnabled(true);
    Seen();
    hand->Press(key::kTab);
    EXPECT_EQ(Seen(), (Events{"txtFirst GotFocus"}));
}

TEST_F(FormFocus, AHandlerThatMovesItOnLeavesPairedEvents) {
    form->On("txtFirst LostFocus to txtSecond", [this] { form->cmdOK.SetFocus(); });
    hand->Press(key::kTab);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to txtSecond", "cmdOK GotFocus"}));
    EXPECT_EQ(form->ActiveControl(), &form->cmdOK);
}

TEST_F(FormFocus, AHandlerThatMovesItAwayAndBackHasItArriveOnce) {
    form->On("txtFirst LostFocus to txtSecond", [this] {
        form->cmdOK.SetFocus();
        form->txtSecond.SetFocus();
    });
    hand->Press(key::kTab);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to txtSecond", "cmdOK GotFocus",
                              "cmdOK LostFocus to txtSecond", "txtSecond GotFocus"}));
}

TEST_F(FormFocus, AListThatHandsItOnIsEnteredAndLeft) {
    form->On("lstRows GotFocus", [this] { form->txtSecond.SetFocus(); });
    form->lstRows.SetFocus();
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to lstRows", "lstRows GotFocus",
                              "lstRows LostFocus to txtSecond", "txtSecond GotFocus"}));
}

TEST_F(FormFocus, ValidateHoldsItAgainstTabAcceleratorAndMouse) {
    form->txtFirst.Validate = [this](bool& refused) {
        form->Note("Validate");
        refused = true;
    };
    hand->Press(key::kTab);
    hand->Press(u'S', key::kAltMask);
    hand->ClickOn(form->cmdMore);
    EXPECT_EQ(Seen(), (Events{"Validate", "Validate", "Validate"}));
    EXPECT_EQ(form->ActiveControl(), &form->txtFirst);
}

TEST_F(FormFocus, ValidateIsAskedAheadOfTheMove) {
    form->txtFirst.Validate = [this](bool&) { form->Note("Validate"); };
    hand->ClickOn(form->cmdMore);
    EXPECT_EQ(Seen(),
              (Events{"Validate", "txtFirst LostFocus to cmdMore", "cmdMore GotFocus", "cmdMore Click"}));
}

TEST_F(FormFocus, ValidateIsNotAskedByCallsEnterAndEscape) {
    form->txtFirst.Validate = [](bool& refused) { refused = true; };
    hand->Press(key::kReturn);
    hand->Press(key::kEscape);
    form->txtSecond.SetFocus();
    EXPECT_EQ(Seen(), (Events{"cmdOK Click", "cmdCancel Click", "txtFirst LostFocus to txtSecond",
                              "txtSecond GotFocus"}));
}

} // namespace

} // namespace kestrelmoor::tests
